// The stand-in of the Document Bridge as the system loads it: a library in the program's own process. Its
// objects stand in the test program, which scripts them, and its type library in this file's resources.

#include <windows.h>
// Behind it, since it does not stand alone.
#include <unknwn.h>

namespace {

using GetClass = HRESULT (*)(REFCLSID, REFIID, void**);

}  // namespace

extern "C" __declspec(dllexport) HRESULT STDMETHODCALLTYPE
    DllGetClassObject(REFCLSID theClass, REFIID identifier, void** object) {
  *object = nullptr;
  const auto getClass = reinterpret_cast<GetClass>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(nullptr), "StandInClass")));
  return getClass == nullptr ? CLASS_E_CLASSNOTAVAILABLE : getClass(theClass, identifier, object);
}

extern "C" __declspec(dllexport) HRESULT STDMETHODCALLTYPE DllCanUnloadNow() {
  return S_FALSE;
}
