#include "platform/win32/ComFailure.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>
#include <string>

#include "platform/win32/ComValues.h"
#include "platform/win32/Win32Text.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

struct Meaning {
  HRESULT result;
  long number;
};

constexpr std::array<Meaning, 10> kMeanings{{
    {DISP_E_TYPEMISMATCH, failure::kTypeMismatch},
    {DISP_E_BADVARTYPE, failure::kTypeMismatch},
    {E_NOINTERFACE, failure::kTypeMismatch},
    {DISP_E_OVERFLOW, failure::kOverflow},
    {DISP_E_BADINDEX, failure::kIndexOutOfRange},
    {DISP_E_UNKNOWNNAME, failure::kNoSuchMember},
    {DISP_E_MEMBERNOTFOUND, failure::kNoSuchMember},
    {E_OUTOFMEMORY, failure::kOutOfMemory},
    {E_ACCESSDENIED, failure::kPermissionDenied},
    {E_INVALIDARG, failure::kInvalidArgument},
}};

/// What the system says of a result; empty if it says nothing.
std::string SystemText(long result) {
  std::array<wchar_t, 512> text{};
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                      static_cast<DWORD>(result), 0, text.data(), text.size(), nullptr);
  std::string said = Utf8({text.data(), length});
  while (!said.empty() && (said.back() == '\n' || said.back() == '\r' || said.back() == ' ')) said.pop_back();
  return said;
}

}  // namespace

long FailureNumber(HRESULT result) {
  for (const Meaning& meaning : kMeanings) {
    if (meaning.result == result) return meaning.number;
  }
  if (HRESULT_FACILITY(result) == FACILITY_CONTROL) return HRESULT_CODE(result);
  return result;
}

HRESULT ResultOf(long failureNumber) {
  constexpr long kLastOwnNumber = 0xFFFF;
  if (failureNumber < 0) return static_cast<HRESULT>(failureNumber);
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, failureNumber <= kLastOwnNumber ? failureNumber : 0);
}

std::string UsualDescription(long failureNumber, std::string_view subject) {
  std::string usual(StandardDescription(failureNumber));
  if (usual.empty()) usual = SystemText(failureNumber);
  if (usual.empty())
    usual = fmt::format("Automation error {:#010x}", static_cast<std::uint32_t>(failureNumber));
  return fmt::format("{} ('{}')", usual, subject);
}

void RaiseComFailure(HRESULT result, std::string_view subject) {
  ComText source;
  ComText description;
  ComText helpFile;
  DWORD helpContext = 0;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.GetAddressOf()) == S_OK) {
    info->GetSource(source.Out());
    info->GetDescription(description.Out());
    info->GetHelpFile(helpFile.Out());
    info->GetHelpContext(&helpContext);
  }
  const long number = FailureNumber(result);
  std::string said = description.Text();
  if (said.empty()) said = UsualDescription(number, subject);
  throw RuntimeError(number, source.Text(), std::move(said), static_cast<long>(helpContext), helpFile.Text());
}

}  // namespace qb
