// A program whose running object has the class "Visio.Application", whose identifier the registry tells. The
// argument is the version that it says it has.

#include <string>

#include "windows/trados/StandInEnd.h"
#include "windows/trados/StandInNamedObject.h"

namespace {

std::wstring version;

class Application : public StandInNamedObject {
 public:
  HRESULT NumberOf(const wchar_t* member, DISPID& number) override {
    if (lstrcmpiW(member, L"Version") == 0) number = 1;
    return number == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                   EXCEPINFO*, UINT*) override {
    if (number != 1) return DISP_E_MEMBERNOTFOUND;
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(version.c_str());
    return S_OK;
  }
};

Application application;

}  // namespace

int main(int argc, char** argv) {
  EndAfterAWhile();
  const std::string argument = argc > 1 ? argv[1] : "";
  version.assign(argument.begin(), argument.end());
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  CLSID identifier{};
  DWORD active = 0;
  if (FAILED(CLSIDFromProgID(L"Visio.Application", &identifier)) ||
      FAILED(RegisterActiveObject(&application, identifier, ACTIVEOBJECT_STRONG, &active))) {
    return 1;
  }
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.lpszClassName = L"StandInVisio";
  RegisterClassW(&windowClass);
  CreateWindowW(L"StandInVisio", L"Drawing", WS_OVERLAPPEDWINDOW, 10, 10, 200, 100, nullptr, nullptr, nullptr,
                nullptr);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;  // it is killed by its test
}
