#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "editors/libreoffice/OfficeOptions.h"
#include "platform/HelperPrograms.h"
#include "runtime/RuntimeError.h"

namespace qb {

/// Something that happened in the office.
struct OfficeEvent {
  enum class Kind { kSaved, kClosed, kLost };
  Kind kind = Kind::kLost;  ///< kLost: office or helper has gone, and every document with it
  std::int64_t document = 0;
  nlohmann::json last;  ///< of a closed document: answers to requests that come too late, by their names
};

/// The office was ended by its user, or was found to have gone, before it began with a request. Another one
/// can be asked.
class OfficeHasEnded : public RuntimeError {
 public:
  using RuntimeError::RuntimeError;
};

/// Talks with the helper that speaks with the office: starts it when it is needed, sends requests and waits
/// for their answers, hands on events. The first profile folder is taken that no other program uses.
class OfficeClient : public std::enable_shared_from_this<OfficeClient> {
 public:
  explicit OfficeClient(OfficeOptions options) : options_(std::move(options)) {}
  OfficeClient(const OfficeClient&) = delete;
  OfficeClient& operator=(const OfficeClient&) = delete;
  ~OfficeClient() = default;

  /// Starts the helper, and the office with it, without waiting for them. Does nothing if it runs.
  void Prepare();
  /// The answer to a request. The windows stay drawn meanwhile. Raises the text of an answer that is an
  /// error, and that the helper is gone or hangs, which ends it; `OfficeHasEnded` if another office
  /// can be asked.
  nlohmann::json Call(std::string_view call, nlohmann::json arguments);
  /// Asks the helper to end and waits a while for it. One that takes longer finds the end of the program by
  /// itself, and leaves a document that it cannot close to its user.
  void End();

  /// Whether a call waits for its answer.
  bool IsCalling() const { return calls_ > 0; }
  /// The profile folder of the office that runs, or is about to end, a native path; empty if there is none.
  std::string Profile() const;
  const OfficeOptions& Options() const { return options_; }

  /// Gets each event as it comes, also while a call waits: it must not call in turn.
  std::function<void(OfficeEvent)> OnEvent;

 private:
  struct Request {
    std::int64_t id = 0;
    std::string line;
  };

  class Calling;

  std::string ProfileToStart() const;
  void Start();
  void StartAtNextProfile();
  void AwaitEndOfOld();
  nlohmann::json Await(std::int64_t id);
  void TakeLine(std::string_view line);
  void TakeAnswer(std::int64_t id, const nlohmann::json& answer);
  void TakeEvent(const nlohmann::json& line);
  void TakeEnd(std::int32_t status);
  void Lose(std::string reason);
  bool Forget(std::int64_t id);

  OfficeOptions options_;
  std::unique_ptr<HelperProcess> process_;
  bool runs_ = false;   ///< the office can be talked with, or will be
  bool ready_ = false;  ///< it has said so
  bool taken_ = false;  ///< another program uses the profile folder
  bool ended_ = true;   ///< the process has ended
  bool quits_ = false;  ///< it was asked to end
  bool left_ = false;   ///< it has said that it ends, so what it has not answered it has not begun
  int profile_ = 1;
  std::string loss_;  ///< why it does not run
  std::int64_t lastId_ = 0;
  int calls_ = 0;
  std::deque<Request> unanswered_;
  std::map<std::int64_t, nlohmann::json> answers_;
};

}  // namespace qb
