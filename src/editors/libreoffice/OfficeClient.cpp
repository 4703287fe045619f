#include "editors/libreoffice/OfficeClient.h"

#include <algorithm>
#include <utility>

#include "editors/libreoffice/WaitingSign.h"
#include "foundation/CTrace.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

using SteadyClock = std::chrono::steady_clock;
using Json = nlohmann::json;
using std::chrono::milliseconds;

constexpr std::string_view kModule = "LibreOffice";
constexpr std::int32_t kProfileTaken = 3;
constexpr std::size_t kTracedBytes = 200;
/// Seconds that the helper waits for its office. It has to give up before we give up the helper, even where
/// it closes two documents, one after the other: a dialog that stands open would cost all sessions otherwise.
constexpr const char* kPatience = "40";

milliseconds Since(SteadyClock::time_point start) {
  return std::chrono::duration_cast<milliseconds>(SteadyClock::now() - start);
}

std::int32_t Number(milliseconds time) {
  return static_cast<std::int32_t>(time.count());
}

std::string Text(const Json& object, const char* name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

std::int64_t Number(const Json& object, const char* name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_number_integer() ? found->get<std::int64_t>() : 0;
}

[[noreturn]] void Raise(std::string text) {
  Trace(1, kModule, "Call", "{}", text);
  throw RuntimeError(failure::kOwn, std::string(kModule), std::move(text));
}

[[noreturn]] void RaiseEnded(std::string text) {
  Trace(2, kModule, "Call", "{}", text);
  throw OfficeHasEnded(failure::kOwn, std::string(kModule), std::move(text));
}

std::string LineOf(std::int64_t id, std::string_view call, Json arguments) {
  arguments["id"] = id;
  arguments["call"] = call;
  try {
    return arguments.dump();
  } catch (const Json::exception&) {
    throw RuntimeError(failure::kInvalidArgument, std::string(kModule),
                       "A text for LibreOffice is not in UTF-8: " +
                           arguments.dump(-1, ' ', false, Json::error_handler_t::replace));
  }
}

}  // namespace

/// Keeps the note of a request while its answer is waited for.
class OfficeClient::Calling {
 public:
  Calling(OfficeClient& client, Request request) : client_(client), id_(request.id) {
    client_.unanswered_.push_back(std::move(request));
    ++client_.calls_;
  }
  Calling(const Calling&) = delete;
  Calling& operator=(const Calling&) = delete;
  ~Calling() {
    --client_.calls_;
    client_.Forget(id_);
  }

 private:
  OfficeClient& client_;
  std::int64_t id_;
};

std::string OfficeClient::Profile() const {
  return runs_ || !ended_ ? ProfileToStart() : std::string();
}

std::string OfficeClient::ProfileToStart() const {
  return options_.profiles + "/office-" + std::to_string(profile_);
}

void OfficeClient::Prepare() {
  if (taken_) StartAtNextProfile();
  if (!runs_) Start();
}

void OfficeClient::Start() {
  AwaitEndOfOld();
  ready_ = taken_ = quits_ = left_ = false;
  loss_.clear();
  const auto self = weak_from_this();
  HelperEvents events;
  events.line = [self](std::string_view line) {
    if (const auto alive = self.lock()) alive->TakeLine(line);
  };
  events.ended = [self](std::int32_t status) {
    if (const auto alive = self.lock()) alive->TakeEnd(status);
  };
  process_ =
      ThePlatform().helpers->Start(options_.helper, {"--profile", ProfileToStart(), "--patience", kPatience},
                                   std::move(events), options_.limits->line);
  ended_ = process_ == nullptr;
  runs_ = !ended_;
  Trace(2, kModule, "Start", "{} with {}: {}", options_.helper, ProfileToStart(),
        runs_ ? "started" : "not started");
  if (!runs_) loss_ = "LibreOffice could not be started.";
  for (const Request& request : unanswered_) {
    if (runs_) process_->Send(request.line);
  }
}

/// A helper whose office has gone is about to end; its profile is free afterwards.
void OfficeClient::AwaitEndOfOld() {
  const auto start = SteadyClock::now();
  while (!ended_ && process_ != nullptr && Since(start) < options_.limits->end) {
    process_->Wait(Number(options_.limits->slice));
  }
  process_.reset();
}

void OfficeClient::StartAtNextProfile() {
  taken_ = false;
  if (profile_ >= options_.limits->profiles) {
    Lose("LibreOffice could not be started: all profile folders are in use.");
    return;
  }
  ++profile_;
  Start();
}

Json OfficeClient::Call(std::string_view call, Json arguments) {
  const auto self = shared_from_this();
  const std::int64_t id = ++lastId_;
  const Request request{id, LineOf(id, call, std::move(arguments))};
  Trace(3, kModule, "Call", "-> {}", request.line.substr(0, kTracedBytes));
  Prepare();
  if (!runs_) Raise(loss_);
  const Calling calling(*this, request);
  process_->Send(request.line);
  const Json answer = Await(id);
  if (const auto error = answer.find("error"); error != answer.end()) {
    const std::string text = Text(*error, "text");
    Raise(text.empty() ? "LibreOffice refused: " + Text(*error, "code") : text);
  }
  const auto result = answer.find("result");
  return result == answer.end() ? Json::object() : *result;
}

Json OfficeClient::Await(std::int64_t id) {
  const auto start = SteadyClock::now();
  auto painted = start;
  WaitingSign sign(options_.limits->patience);
  for (;;) {
    if (taken_) StartAtNextProfile();
    if (const auto found = answers_.find(id); found != answers_.end()) {
      Json answer = std::move(found->second);
      answers_.erase(found);
      return answer;
    }
    if (!runs_ && left_) RaiseEnded(loss_);
    if (!runs_) Raise(loss_);
    const milliseconds waited = Since(start);
    if (waited >= options_.limits->answer) {
      process_->Kill();
      ++profile_;  // the office that hangs keeps its own
      Lose("LibreOffice does not answer.");
      continue;
    }
    const bool told = process_->Wait(Number(options_.limits->slice));
    if (told && Since(painted) < options_.limits->slice) continue;
    sign.Turn(waited, ready_ ? "Waiting for LibreOffice..." : "Starting LibreOffice...");
    painted = SteadyClock::now();
  }
}

void OfficeClient::End() {
  if (process_ == nullptr || ended_) return;
  const auto self = shared_from_this();
  quits_ = true;
  process_->Send(LineOf(++lastId_, "quit", Json::object()));
  const auto start = SteadyClock::now();
  while (!ended_ && Since(start) < options_.limits->end) process_->Wait(Number(options_.limits->slice));
}

void OfficeClient::TakeLine(std::string_view line) {
  const Json read = Json::parse(line, nullptr, false);
  if (!read.is_object()) {
    Trace(2, kModule, "TakeLine", "not understood: {}", line.substr(0, kTracedBytes));
    return;
  }
  Trace(3, kModule, "TakeLine", "<- {}", line.substr(0, kTracedBytes));
  if (read.contains("event")) {
    TakeEvent(read);
  } else {
    TakeAnswer(Number(read, "id"), read);
  }
}

bool OfficeClient::Forget(std::int64_t id) {
  const auto found = std::find_if(unanswered_.begin(), unanswered_.end(),
                                  [&](const Request& request) { return request.id == id; });
  if (found == unanswered_.end()) return false;
  unanswered_.erase(found);
  return true;
}

void OfficeClient::TakeAnswer(std::int64_t id, const Json& answer) {
  // The end comes next, behind what happened to the documents, and is answer enough. A request that followed
  // this one at once would go to the same office.
  const auto error = answer.find("error");
  if (error != answer.end() && Text(*error, "code") == "ended") return;
  if (Forget(id)) answers_[id] = answer;  // an answer that nobody waits for any more is none
}

void OfficeClient::TakeEvent(const Json& line) {
  const std::string event = Text(line, "event");
  const std::int64_t document = Number(line, "document");
  if (event == "ready") ready_ = true;
  if (event == "failed") Lose("LibreOffice could not be started: " + Text(line, "text"));
  if (event == "ended") {
    left_ = true;
    Lose("LibreOffice has ended.");
  }
  if (event == "saved") OnEvent({OfficeEvent::Kind::kSaved, document, {}});
  if (event == "closed") OnEvent({OfficeEvent::Kind::kClosed, document, line.value("last", Json::object())});
}

void OfficeClient::TakeEnd(std::int32_t status) {
  ended_ = true;
  if (status == kProfileTaken && runs_ && !ready_) {
    taken_ = true;
    const auto self = weak_from_this();
    ThePlatform().helpers->Later([self] {
      const auto alive = self.lock();
      if (alive != nullptr && alive->taken_) alive->StartAtNextProfile();
    });
    return;
  }
  Trace(quits_ ? 2 : 1, kModule, "TakeEnd", "the helper has ended with status {}", status);
  if (!runs_) return;
  Lose(ready_ ? "LibreOffice has ended." : "LibreOffice could not be started.");
}

void OfficeClient::Lose(std::string reason) {
  if (!runs_) return;
  Trace(1, kModule, "Lose", "{}", reason);
  runs_ = ready_ = taken_ = false;
  loss_ = std::move(reason);
  unanswered_.clear();
  OnEvent({OfficeEvent::Kind::kLost, 0, {}});
}

}  // namespace qb
