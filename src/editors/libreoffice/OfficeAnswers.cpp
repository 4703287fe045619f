// What documents answer about their titles and links.

#include <utility>

#include "editors/libreoffice/Office.h"
#include "foundation/CMessageHandler.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

using Json = nlohmann::json;

constexpr std::string_view kModule = "LibreOffice";

[[noreturn]] void RaiseGone(const OfficeDocument& document) {
  throw RuntimeError(failure::kOwn, std::string(kModule),
                     "'" + document.path + "' has gone from LibreOffice.");
}

}  // namespace

Json Office::Ask(std::string_view call, OfficeDocument& document) {
  if (!document.closed) {
    try {
      const Json answer = Call(call, {{"document", document.number}});
      // One that was closed meanwhile has said what it said last.
      if (!document.closed || !document.answers.contains(call)) document.answers[std::string(call)] = answer;
    } catch (const RuntimeError&) {
      if (!document.closed) throw;
    }
  }
  const auto found = document.answers.find(call);
  if (found != document.answers.end()) return found->second;
  RaiseGone(document);
}

Json Office::Title(OfficeDocument& document) {
  return Ask("title", document);
}

Json Office::Links(OfficeDocument& document) {
  const auto told = document.told;
  if (told == nullptr) return Ask("links", document);
  if (!std::exchange(told->asked, true)) {
    const PendingError pending = Err;
    if (!Attempt([&] { told->links = Ask("links", document); })) told->refusal = Err.Description;
    Err = pending;
  }
  if (told->links) return *told->links;
  throw RuntimeError(failure::kOwn, std::string(kModule), told->refusal);
}

bool Office::HasLinks(OfficeDocument& document) {
  if (document.told == nullptr) return true;
  const PendingError pending = Err;
  const bool has = Attempt([&] { Links(document); });
  if (!has && gMessageHandler != nullptr) {
    gMessageHandler->Message("The links of '" + document.path + "' could not be read: " + Err.Description, 1,
                             false, false);
  }
  Err = pending;
  return has;
}

void Office::SetTitle(const OfficeDocument& document, std::string_view title) {
  if (document.closed) RaiseGone(document);
  Call("setTitle", {{"document", document.number}, {"title", title}});
}

}  // namespace qb
