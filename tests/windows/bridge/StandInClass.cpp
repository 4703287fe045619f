#include "windows/bridge/StandInClass.h"

#include <stdexcept>

#include "windows/bridge/StandInBridgeObjects.h"

namespace qb {
namespace {

constexpr const wchar_t* kTypeLibrary = L"TypeLib\\{BD85A42C-52B0-4886-BE5A-64193ECCAB1B}";
constexpr const wchar_t* kClass = L"CLSID\\{5E5D2C10-000A-4B77-9C9A-2B1F0E6A7C01}";

/// Makes bridges of the scripted office.
class StandInFactory : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override {
    *object = nullptr;
    if (identifier != IID_IUnknown && identifier != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    return S_OK;
  }
  // One for the whole process.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID identifier, void** object) override {
    *object = nullptr;
    HRESULT result = S_OK;
    const HRESULT made = Answer([&] {
      IStandInBridge* bridge = nullptr;
      Give<StandInBridge>(theStandIn.newOffice(), &bridge);
      if (bridge == nullptr) return;
      result = bridge->QueryInterface(identifier, object);
      bridge->Release();
    });
    return FAILED(made) ? made : result;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

void SetValue(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  if (RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, value.c_str(), bytes) != ERROR_SUCCESS) {
    throw std::runtime_error("the stand-in cannot be registered");
  }
}

}  // namespace

std::wstring StandInFile(const wchar_t* name) {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.rfind(L'\\') + 1) + name;
}

void RegisterTypeLibrary(const wchar_t* version, const wchar_t* system, const std::wstring& typeLibrary) {
  const std::wstring key = std::wstring(kTypeLibrary) + L'\\' + version;
  SetValue(key, nullptr, L"Stand-in of the Document Bridge");
  SetValue(key + L"\\0\\" + system, nullptr, typeLibrary);
  SetValue(key + L"\\FLAGS", nullptr, L"0");
}

void RegisterStandIn(const std::wstring& typeLibrary, const std::wstring& library) {
  UnregisterStandIn();
  RegisterTypeLibrary(L"1.0", L"win64", typeLibrary);
  const std::wstring key = std::wstring(kClass) + L"\\InprocServer32";
  SetValue(key, nullptr, library);
  SetValue(key, L"ThreadingModel", L"Apartment");
}

void UnregisterStandIn() {
  RegDeleteTreeW(HKEY_CLASSES_ROOT, kTypeLibrary);
  RegDeleteTreeW(HKEY_CLASSES_ROOT, kClass);
}

}  // namespace qb

/// What the library asks the test program for.
extern "C" __declspec(dllexport) HRESULT StandInClass(REFCLSID theClass, REFIID identifier, void** object) {
  static qb::StandInFactory factory;
  if (theClass != __uuidof(StandInBridgeClass)) return CLASS_E_CLASSNOTAVAILABLE;
  return factory.QueryInterface(identifier, object);
}
