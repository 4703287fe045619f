#pragma once

#include "platform/HelperPrograms.h"
#include "platform/linux/LinuxFileSystem.h"

namespace qb {

/// Helpers whose pipes hang in the main loop of GLib, which is the loop of the window.
class LinuxHelperPrograms : public HelperPrograms {
 public:
  /// `root` is the native folder that stands for the drive's root, empty for "/".
  explicit LinuxHelperPrograms(const std::string& root = {}) : files_(root) {}

  std::unique_ptr<HelperProcess> Start(std::string_view program, const std::vector<std::string>& arguments,
                                       HelperEvents events, std::size_t longestLine) override;
  std::string NativePath(std::string_view path) override { return files_.NativeForCreation(path); }
  std::string CacheFolder() override;
  bool IsLockHeld(const std::string& native) override;
  void Later(std::function<void()> work) override;

 private:
  LinuxFileSystem files_;
};

}  // namespace qb
