#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace qb {

/// Keeps the windows drawn while a command waits, and tells the user about a longer wait by hourglass and
/// status line, which are as before when it ends.
class WaitingSign {
 public:
  explicit WaitingSign(std::chrono::milliseconds patience) : patience_(patience) {}
  WaitingSign(const WaitingSign&) = delete;
  WaitingSign& operator=(const WaitingSign&) = delete;
  ~WaitingSign();

  /// One turn of a wait that has taken `waited` so far; `text` is what it waits for.
  void Turn(std::chrono::milliseconds waited, std::string_view text);

 private:
  std::chrono::milliseconds patience_;
  std::optional<std::string> before_;  ///< the status line's text
};

}  // namespace qb
