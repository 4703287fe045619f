#pragma once

#include <chrono>

#include "platform/Applications.h"
#include "platform/linux/SessionBus.h"

namespace qb {

/// Windows of other programs, as far as those offer themselves on the session bus: the window class is the
/// application's name there, and Alt+F4 calls its method `Close`. Nothing else can be found or sent to.
class LinuxApplicationWindows : public ApplicationWindows {
 public:
  static constexpr std::chrono::seconds kTimeout{5};
  explicit LinuxApplicationWindows(std::chrono::milliseconds timeout = kTimeout) : bus_(timeout) {}

  /// 1 if a program owns the name of the class. No window is found by its title.
  std::uintptr_t Find(std::optional<std::string_view> windowClass,
                      std::optional<std::string_view> title) override;
  std::int64_t SendCopyData(std::uintptr_t, std::uintptr_t, std::optional<std::u16string_view>) override {
    return 0;
  }
  /// Asks the program whose property `Title` is `title` to close. Raises 5 for any other keys.
  void SendKeys(std::string_view title, std::string_view keys) override;

 private:
  /// The connection's name of the program with this title; empty if there is none.
  std::string OwnerOfTitle(std::string_view title);

  SessionBus bus_;
};

}  // namespace qb
