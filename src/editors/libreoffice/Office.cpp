#include "editors/libreoffice/Office.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "editors/libreoffice/OpenElsewhere.h"
#include "foundation/CTrace.h"
#include "foundation/gRvdError.h"
#include "foundation/gRvdFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "ui/Toolkit.h"

namespace qb {
namespace {

using Json = nlohmann::json;

constexpr std::string_view kModule = "LibreOffice";
constexpr int kAttemptsToOpen = 3;

/// Whether the file of a writable document was written since its last save was heard of.
bool WasWritten(const OfficeDocument& document) {
  if (!document.stamp) return false;
  const auto now = ThePlatform().files->Stamp(document.path);
  return now && (now->size != document.stamp->size || !(now->lastWrite == document.stamp->lastWrite));
}

}  // namespace

std::shared_ptr<Office> Office::Make(OfficeOptions options) {
  const auto client = std::make_shared<OfficeClient>(std::move(options));
  std::shared_ptr<Office> office(new Office(client));
  client->OnEvent = [self = std::weak_ptr(office)](const OfficeEvent& event) {
    if (const auto alive = self.lock()) alive->Take(event);
  };
  return office;
}

bool Office::IsInstalled() const {
  return FileExists(client_->Options().helper, 0);
}

std::shared_ptr<OfficeGroup> Office::Find(std::string_view path) {
  for (const auto& group : groups_) {
    if (IsSameFile(group->path, path)) return group;
  }
  auto elsewhere = std::make_shared<OfficeGroup>();
  elsewhere->path = path;
  for (const auto& group : groups_) {
    for (const auto& document : group->documents) {
      if (IsSameFile(document->path, path)) elsewhere->documents.push_back(document);
    }
  }
  if (elsewhere->documents.empty() && IsOpenElsewhere(path)) {
    elsewhere->documents.push_back(std::make_shared<OfficeDocument>());
    elsewhere->documents.front()->closed = true;  // it is not ours to close
  }
  return elsewhere->documents.empty() ? nullptr : elsewhere;
}

bool Office::IsOpenElsewhere(std::string_view path) {
  const LockHolder holder = HolderOfLock(path, client_->Options().profiles, client_->Profile());
  if (holder != LockHolder::kOwnOffice) return holder == LockHolder::kAnotherOffice;
  // A helper that starts anew finds the office of one that died, with what its user has open there.
  Json answer;
  const PendingError pending = Err;
  Attempt([&] { answer = Call("isOpen", {{"path", ThePlatform().helpers->NativePath(path)}}); });
  Err = pending;
  return answer.is_object() && answer.value("open", Json()) == true;
}

Json Office::Call(std::string_view call, Json arguments) {
  struct Settle {
    Office& office;
    ~Settle() {
      if (!office.waiting_.empty()) office.RaiseLater();
    }
  };
  const Settle settle{*this};
  return client_->Call(call, std::move(arguments));
}

/// Its user may end the office while a document is on its way to it, which is no reason to refuse that.
Json Office::CallToOpen(std::string_view path, bool readOnly, std::int64_t& losses) {
  for (int attempt = 1;; ++attempt) {
    unknown_.clear();
    losses = losses_;
    try {
      return Call("open", {{"path", ThePlatform().helpers->NativePath(path)}, {"readOnly", readOnly}});
    } catch (const OfficeHasEnded&) {
      if (attempt == kAttemptsToOpen) throw;
    }
  }
}

std::shared_ptr<OfficeDocument> Office::Open(const std::shared_ptr<OfficeGroup>& group, std::string_view path,
                                             bool readOnly) {
  std::int64_t losses = 0;
  const Json answer = CallToOpen(path, readOnly, losses);
  auto document = std::make_shared<OfficeDocument>();
  const bool understood = answer.contains("document") && answer["document"].is_number_integer() &&
                          answer.contains("kind") && answer["kind"].is_string();
  if (!understood || losses != losses_) {
    RaiseAbout(failure::kInternalError, "LibreOffice opened '" + std::string(path) + "' and lost it");
  }
  document->number = answer["document"].get<std::int64_t>();
  document->path = path;
  document->kind = answer["kind"].get<std::string>();
  if (!readOnly) document->stamp = ThePlatform().files->Stamp(path);
  open_.push_back(document);
  if (group->documents.empty()) groups_.push_back(group);
  group->documents.push_back(document);
  for (const OfficeEvent& event : std::exchange(unknown_, {})) Take(event);
  return document;
}

void Office::Close(const OfficeGroup& group) {
  const Documents documents = group.documents;
  Json numbers = Json::array();
  for (const auto& document : documents) {
    if (!document->closed) numbers.push_back(document->number);
  }
  std::exception_ptr failure;
  if (!numbers.empty()) {
    try {
      Call("close", {{"documents", numbers}});
      for (const auto& document : documents) TakeClose(document);
    } catch (const RuntimeError&) {
      // An office that dies meanwhile has closed them too.
      const bool closed = std::all_of(documents.begin(), documents.end(),
                                      [](const auto& document) { return document->closed; });
      if (!closed) failure = std::current_exception();
    }
  }
  RaiseOf(documents);
  if (failure != nullptr) std::rethrow_exception(failure);
}

void Office::Arrange(const OfficeGroup& group, std::int32_t style) {
  Json numbers = Json::array();
  for (const auto& document : group.documents) {
    if (!document->closed) numbers.push_back(document->number);
  }
  if (numbers.empty()) return;
  const ScreenArea area = TheToolkit().WorkArea();
  const Json screen{{"x", area.x}, {"y", area.y}, {"width", area.width}, {"height", area.height}};
  const bool arranged = Attempt([&] {
    Call("arrange", {{"documents", numbers}, {"style", style}, {"screen", screen}});
  });
  if (!arranged) TracePendingError(kModule, "Arrange");
  Err.Clear();
}

void Office::Take(const OfficeEvent& event) {
  if (event.kind == OfficeEvent::Kind::kLost) return TakeLoss();
  const auto found = std::find_if(open_.begin(), open_.end(),
                                  [&](const auto& document) { return document->number == event.document; });
  if (found == open_.end()) {
    if (client_->IsCalling()) unknown_.push_back(event);
    return;
  }
  if (event.kind == OfficeEvent::Kind::kClosed) return TakeClose(*found, event.last);
  TakeSave(*found);
}

void Office::TakeSave(const std::shared_ptr<OfficeDocument>& document) {
  if (document->stamp) document->stamp = ThePlatform().files->Stamp(document->path);
  waiting_.push_back({true, document});
  RaiseLater();
}

void Office::TakeClose(const std::shared_ptr<OfficeDocument>& document, const Json& last) {
  if (document->closed) return;
  document->closed = true;
  if (last.is_object()) {
    for (const auto& [call, answer] : last.items()) document->answers[call] = answer;
  }
  // An office that dies right behind a save does not tell it any more.
  if (WasWritten(*document)) TakeSave(document);
  waiting_.push_back({false, document});
  open_.erase(
      std::find(open_.begin(), open_.end(), document));  // NOLINT(bugprone-inaccurate-erase): it is there
  RaiseLater();
}

void Office::TakeLoss() {
  ++losses_;
  unknown_.clear();
  for (const auto& document : Documents(open_)) TakeClose(document);
}

void Office::RaiseLater() {
  if (client_->IsCalling() || std::exchange(raisesLater_, true)) return;  // the end of the call sees to it
  ThePlatform().helpers->Later([self = weak_from_this()] {
    if (const auto alive = self.lock()) alive->RaiseWaiting();
  });
}

void Office::RaiseWaiting() {
  raisesLater_ = false;
  const auto self = shared_from_this();
  while (!waiting_.empty() && !client_->IsCalling()) {
    const Event event = waiting_.front();
    waiting_.pop_front();
    const PendingError pending = Err;
    if (!Attempt([&] { RaiseOne(event); })) gRvdError(kModule, "RaiseWaiting");
    Err = pending;
  }
}

void Office::RaiseOf(const Documents& documents) {
  const auto self = shared_from_this();
  for (;;) {
    const auto next = std::find_if(waiting_.begin(), waiting_.end(), [&](const Event& event) {
      return std::find(documents.begin(), documents.end(), event.document) != documents.end();
    });
    if (next == waiting_.end()) return;
    const Event event = *next;
    waiting_.erase(next);
    RaiseOne(event);
  }
}

void Office::RaiseOne(const Event& event) {
  if (!event.saved) Leave(event.document);
  const auto holder = event.document->holder.lock();
  if (holder == nullptr) return;
  if (event.saved) {
    RaiseSave(*event.document, *holder);
  } else {
    holder->RaiseOnPostClose();
  }
}

void Office::RaiseSave(OfficeDocument& document, IBridgeDocument& holder) {
  struct Telling {
    OfficeDocument& document;
    std::shared_ptr<ToldSave> outer;
    ~Telling() { document.told = outer; }
  };
  const Telling telling{document, std::exchange(document.told, std::make_shared<ToldSave>())};
  holder.RaiseOnPostLocalSave();
}

void Office::Leave(const std::shared_ptr<OfficeDocument>& document) {
  for (const auto& group : groups_) std::erase(group->documents, document);
  std::erase_if(groups_, [](const auto& group) { return group->documents.empty(); });
}

}  // namespace qb
