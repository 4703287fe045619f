#include "platform/win32/ComInvoke.h"

#include <vector>

#include "platform/win32/ComFailure.h"
#include "platform/win32/ComPatience.h"
#include "platform/win32/Win32Text.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

VARIANT LeftOut() {
  VARIANT none;
  VariantInit(&none);
  none.vt = VT_ERROR;
  none.scode = DISP_E_PARAMNOTFOUND;
  return none;
}

[[noreturn]] void RaiseException(EXCEPINFO& exception, std::string_view subject) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  ComText source;
  ComText description;
  ComText helpFile;
  *source.Out() = exception.bstrSource;
  *description.Out() = exception.bstrDescription;
  *helpFile.Out() = exception.bstrHelpFile;
  const long number = exception.scode != 0 ? FailureNumber(exception.scode) : exception.wCode;
  std::string said = description.Text();
  if (said.empty()) said = UsualDescription(number, subject);
  throw RuntimeError(number, source.Text(), std::move(said), static_cast<long>(exception.dwHelpContext),
                     helpFile.Text());
}

}  // namespace

DISPID MemberNumber(IDispatch& object, std::string_view name) {
  std::wstring text = Wide(name);
  LPOLESTR names = text.data();
  DISPID member = DISPID_UNKNOWN;
  SetErrorInfo(0, nullptr);  // what is found there afterwards is of this call
  CheckCom(
      CallPatiently([&] { return object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member); }),
      name);
  return member;
}

ComValue InvokeMember(IDispatch& object, DISPID member, WORD kind, std::string_view subject,
                      const CallArguments& arguments) {
  std::vector<ComValue> values;
  std::vector<VARIANT> backwards;  // the last argument comes first
  for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
    values.emplace_back(argument->value_or(TaggedValue()));
    backwards.push_back(argument->has_value() ? values.back().Get() : LeftOut());
  }
  DISPPARAMS parameters{backwards.data(), nullptr, static_cast<UINT>(backwards.size()), 0};
  EXCEPINFO exception{};
  ComValue result;
  UINT wrongArgument = 0;
  SetErrorInfo(0, nullptr);  // what is found there afterwards is of this call
  const HRESULT answer = CallPatiently([&] {
    return object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result.Out(), &exception,
                         &wrongArgument);
  });
  if (answer == DISP_E_EXCEPTION) RaiseException(exception, subject);
  CheckCom(answer, subject);
  return result;
}

}  // namespace qb
