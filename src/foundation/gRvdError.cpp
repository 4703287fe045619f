#include "foundation/gRvdError.h"

#include <fmt/format.h>

#include <utility>

#include "foundation/CMessageHandler.h"
#include "foundation/FoundationState.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::int16_t kWarning = 1;

std::string Severity(long helpContext) {
  constexpr std::string_view kLetters = "SIWEA";
  if (helpContext >= 0 || helpContext < -static_cast<long>(kLetters.size())) return " #";
  return {' ', kLetters[static_cast<std::size_t>(-helpContext - 1)]};
}

std::string StandardLine(std::string_view module, std::string_view procedure, const PendingError& error) {
  std::string line;
  if (!module.empty()) line = fmt::format("{}::", Trim(module));
  line += procedure.empty() ? "<internal error>" : fmt::format("{}()", procedure);
  return fmt::format("{}{}{}:{}", line, Severity(error.HelpContext), error.Number, error.Description);
}

void ShowPlainBox(std::string_view text, const PendingError& error) {
  Attempt([&] {
    MessageBoxRequest request;
    request.text = text;
    request.helpFile = error.HelpFile;
    request.helpContext = error.HelpContext;
    ThePlatform().messageBoxes->Show(request);
  });
}

/// False if there is no message handler.
bool WriteToProtocol(std::string_view text) {
  if (gMessageHandler == nullptr) return false;
  Attempt([&] { gMessageHandler->Message(text, kWarning, false, false); });
  return true;
}

}  // namespace

void gRvdError(std::string_view module, std::string_view procedure, std::string_view, const long&,
               std::string_view, const long&, const long&, std::string_view, std::string_view extraText) {
  const PendingError error = Err;
  if (error.Number == 0) return;
  const bool wasInError = std::exchange(gInError, true);
  const std::string line = StandardLine(module, procedure, error);
  if (wasInError) {
    const std::string text = fmt::format("Recursive Error: \r\n{}\r\n{}", line, extraText);
    if (!WriteToProtocol(text)) ShowPlainBox(text, error);
  } else {
    WriteToProtocol(line);
    ShowPlainBox(line, error);
    gInError = false;
  }
  Err.Clear();
}

void gRvdError(std::string_view module, std::string_view procedure, std::string_view extraText) {
  constexpr long kNone = 0;
  gRvdError(module, procedure, {}, kNone, {}, kNone, kNone, {}, extraText);
}

}  // namespace qb
