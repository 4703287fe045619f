#include "windows/bridge/StandInClass.h"

#include <stdexcept>
#include <utility>

#include "editors/EditorQuestions.h"
#include "platform/win32/ComApartment.h"
#include "support/ScriptedBridge.h"
#include "windows/bridge/StandInBridgeObjects.h"

namespace qb {
namespace {

constexpr GUID kLibrary = {0xBD85A42C, 0x52B0, 0x4886, {0xBE, 0x5A, 0x64, 0x19, 0x3E, 0xCC, 0xAB, 0x1B}};
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

StandInFactory theFactory;

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

void RegisterStandInProgram() {
  UnregisterStandIn();
  ComPtr<ITypeLib> library;
  const std::wstring file = StandInFile(L"StandInBridge.tlb");
  CheckCom(LoadTypeLibEx(file.c_str(), REGKIND_REGISTER, library.GetAddressOf()), "StandInBridge.tlb");
  SetValue(std::wstring(kClass) + L"\\LocalServer32", nullptr,
           L'"' + StandInFile(L"com_bridge_tests.exe") + L"\" --serve");
}

int RunStandInProgram() {
  EnterComApartment();
  const auto office = ScriptedBridge::Install();
  office->During(R"(group \pkg\dst\text.doc Arrange(3))", [&] { office->UserSaves(R"(\pkg\dst\text.doc)"); });
  bool later = false;
  office->During("bridge 1 QueryCapability(later, 1)", [&] { later = true; });
  theStandIn.newOffice = gEditorQuestions.newDocumentBridge;
  DWORD number = 0;
  CheckCom(CoRegisterClassObject(__uuidof(StandInBridgeClass), &theFactory, CLSCTX_LOCAL_SERVER,
                                 REGCLS_MULTIPLEUSE, &number),
           "CoRegisterClassObject");
  // Looks around between the calls; without anybody who uses it at all it ends after a minute.
  SetTimer(nullptr, 0, 50, nullptr);
  const ULONGLONG start = GetTickCount64();
  bool used = false;
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0 && GetTickCount64() - start < 60'000) {
    DispatchMessageW(&message);
    if (message.message == WM_TIMER && std::exchange(later, false)) office->UserSaves(R"(\pkg\dst\text.doc)");
    if (used && theStandIn.objects == 0) break;
    used = theStandIn.objects > 0;
  }
  CoRevokeClassObject(number);
  return 0;
}

void UnregisterStandIn() {
  UnRegisterTypeLib(kLibrary, 1, 0, 0, SYS_WIN64);  // with what lets its interfaces pass between processes
  RegDeleteTreeW(HKEY_CLASSES_ROOT, kTypeLibrary);
  RegDeleteTreeW(HKEY_CLASSES_ROOT, kClass);
}

}  // namespace qb

/// What the library asks the test program for.
extern "C" __declspec(dllexport) HRESULT StandInClass(REFCLSID theClass, REFIID identifier, void** object) {
  if (theClass != __uuidof(StandInBridgeClass)) return CLASS_E_CLASSNOTAVAILABLE;
  return qb::theFactory.QueryInterface(identifier, object);
}
