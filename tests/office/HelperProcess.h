#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace qb::office {

/// The real helper, spoken to as the program does. Each wait has an end, which fails the test.
class HelperProcess {
 public:
  explicit HelperProcess(const std::string& profile, const std::vector<std::string>& more = {});
  HelperProcess(const HelperProcess&) = delete;
  HelperProcess& operator=(const HelperProcess&) = delete;
  /// Ends helper and office if they live.
  ~HelperProcess();

  /// Sends a request; the result is its number. A helper that has ended does not hear it.
  int Send(const std::string& call, nlohmann::json arguments = nlohmann::json::object());
  void SendLine(const std::string& line) const;
  /// Sends a request and waits for its answer: `result`, or `error` with `code` and `text`.
  nlohmann::json Ask(const std::string& call, const nlohmann::json& arguments = nlohmann::json::object());
  nlohmann::json WaitForAnswer(int id);
  /// Waits for a line, among those that nobody has waited for yet, and forgets those before it.
  nlohmann::json WaitFor(const std::function<bool(const nlohmann::json&)>& isIt);
  nlohmann::json WaitForEvent(const std::string& event);
  /// The lines so far that nobody has waited for.
  std::vector<nlohmann::json> Waiting();
  /// Forgets them.
  void Forget();
  /// Waits for the end of the output; the lines until then.
  std::vector<nlohmann::json> ReadToEnd();

  /// The program dies.
  void CloseInput();
  /// Waits for the end of the helper; its exit status, or 128 and the number of a signal.
  int WaitForEnd();

  pid_t Pid() const { return pid_; }
  /// The office's process; waits until there is one.
  pid_t OfficePid() const;
  /// The name of the pipe that the office listens on.
  std::string Pipe() const;

 private:
  bool ReadMore(std::chrono::milliseconds patience);

  pid_t pid_ = -1;
  int input_ = -1;
  int output_ = -1;
  int lastId_ = 0;
  bool hasEnded_ = false;
  std::string bytes_;
  std::vector<nlohmann::json> lines_;
};

/// Waits until it is so; false if that does not come.
bool WaitUntil(const std::function<bool()>& isSo);

/// Sends a signal to one process that lives.
void Signal(pid_t process, int signal);

/// Waits until the process is gone.
bool WaitUntilGone(pid_t process);

}  // namespace qb::office
