#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qb {

/// What a helper tells of itself. Called from the window's event loop and from `HelperProcess::Wait`, in the
/// order in which things happened. They must not let go of the process.
struct HelperEvents {
  std::function<void(std::string_view line)> line;  ///< one line of its output, without its end
  std::function<void(std::int32_t status)> ended;   ///< once, behind the last line; 128 and more: killed
};

/// A program of our own that runs beside this one and is talked with in lines. It is killed at the end of the
/// object, if it still runs.
class HelperProcess {
 public:
  virtual ~HelperProcess() = default;
  /// Sends one line. What the helper does not take at once goes during `Wait`.
  virtual void Send(std::string_view line) = 0;
  /// Waits up to so many milliseconds until the helper has told something. False if it has not.
  virtual bool Wait(std::int32_t milliseconds) = 0;
  virtual void Kill() = 0;
};

/// Helpers, and what one needs to know to talk with them.
class HelperPrograms {
 public:
  virtual ~HelperPrograms() = default;
  /// Starts a program; nothing if that fails. A line of more than `longestLine` bytes kills the helper.
  virtual std::unique_ptr<HelperProcess> Start(std::string_view program,
                                               const std::vector<std::string>& arguments, HelperEvents events,
                                               std::size_t longestLine) = 0;
  /// The path as other programs of this system take it.
  virtual std::string NativePath(std::string_view path) = 0;
  /// The user's folder for what the program may lose, as a native path.
  virtual std::string CacheFolder() = 0;
  /// Whether a running process holds the lock of this file, given as a native path.
  virtual bool IsLockHeld(const std::string& native) = 0;
  /// Runs `work` from the window's event loop, when it comes to it.
  virtual void Later(std::function<void()> work) = 0;
};

}  // namespace qb
