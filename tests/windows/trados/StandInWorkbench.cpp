// A program that is reached by automation as the Workbench is: the class "TW4Win.Application", whose
// identifier the registry tells, and the window class "TW4Win2Class". The argument "mute" keeps the running
// object to itself; the system starts it with other arguments for a new one.

#include "windows/trados/StandInWorkbench.h"

#include <string>

#include "windows/trados/StandInEnd.h"
#include "windows/trados/StandInNamedObject.h"

namespace {

HWND window = nullptr;
std::wstring opened;  // what `Open` was told last

std::wstring TextOf(const VARIANT& value) {
  return value.vt == VT_BSTR ? value.bstrVal : L"no text";
}

class Memory : public StandInNamedObject {
 public:
  HRESULT NumberOf(const wchar_t* member, DISPID& number) override {
    if (lstrcmpiW(member, L"Open") == 0) number = 1;
    if (lstrcmpiW(member, L"Opened") == 0) number = 2;
    return number == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override {
    if (number == 2) {
      result->vt = VT_BSTR;
      result->bstrVal = SysAllocString(opened.c_str());
      return S_OK;
    }
    if (number != 1) return DISP_E_MEMBERNOTFOUND;
    if (arguments->cArgs != 4) return DISP_E_BADPARAMCOUNT;
    const VARIANT* const given = arguments->rgvarg;  // the last one comes first
    const bool isLeftOut = given[1].vt == VT_ERROR && given[1].scode == DISP_E_PARAMNOTFOUND;
    opened = TextOf(given[3]) + L"|" + TextOf(given[2]) + (isLeftOut ? L"|left out|" : L"|given|") +
             TextOf(given[0]);
    if (TextOf(given[3]).find(L"crash") != std::wstring::npos) TerminateProcess(GetCurrentProcess(), 3);
    if (TextOf(given[3]).find(L"locked") == std::wstring::npos) {
      SetWindowTextW(window, (L"Workbench: " + TextOf(given[3])).c_str());
      return S_OK;
    }
    exception->scode = kLockedFailure;
    exception->bstrSource = SysAllocString(L"TW4Win");
    exception->bstrDescription = SysAllocString(L"The memory is locked.");
    return DISP_E_EXCEPTION;
  }
};

class Application : public StandInNamedObject {
 public:
  HRESULT NumberOf(const wchar_t* member, DISPID& number) override {
    if (lstrcmpiW(member, L"Quit") == 0) number = 1;
    if (lstrcmpiW(member, L"TranslationMemory") == 0) number = 2;
    return number == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                   EXCEPINFO*, UINT*) override {
    if (number == 1) PostMessageW(window, WM_CLOSE, 0, 0);
    if (number == 2) {
      result->vt = VT_DISPATCH;
      result->pdispVal = &memory_;
    }
    return number == 1 || number == 2 ? S_OK : DISP_E_MEMBERNOTFOUND;
  }

 private:
  Memory memory_;
};

Application application;

class Factory : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IClassFactory;
    *found = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID wanted, void** made) override {
    return application.QueryInterface(wanted, made);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

Factory factory;

DWORD active = 0;
DWORD registered = 0;

LRESULT CALLBACK OnMessage(HWND receiver, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_CLOSE) {
    // Before the window goes: who sees that it has gone may start the next one.
    if (active != 0) RevokeActiveObject(active, nullptr);
    if (registered != 0) CoRevokeClassObject(registered);
  }
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(receiver, message, first, second);
}

}  // namespace

int main(int argc, char** argv) {
  EndAfterAWhile();
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const bool isMute = argc > 1 && std::string(argv[1]) == "mute";
  CLSID identifier{};
  if (!isMute && SUCCEEDED(CLSIDFromProgID(kWorkbenchName, &identifier))) {
    RegisterActiveObject(&application, identifier, ACTIVEOBJECT_STRONG, &active);
    CoRegisterClassObject(identifier, &factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &registered);
  }
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.lpszClassName = L"TW4Win2Class";
  RegisterClassW(&windowClass);
  window = CreateWindowW(L"TW4Win2Class", L"Workbench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 200, 100,
                         nullptr, nullptr, nullptr, nullptr);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;  // without leaving automation, where Wine may wait for calls of a program that has gone
}
