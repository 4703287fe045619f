#pragma once

#include <string>
#include <string_view>

namespace qb {

/// Between the program's Windows paths and the paths of the machine: the two separators are swapped, and
/// nothing else is done. The drive's root may be any folder.
class LinuxPaths {
 public:
  /// `root` is the native folder that stands for `\`; empty stands for "/".
  explicit LinuxPaths(const std::string& root = {});

  /// The absolute native path. A relative path starts in the current directory, or in the root where that
  /// directory lies outside of it.
  std::string Native(std::string_view path) const;

  /// The Windows path of an absolute native path. What lies outside of the root keeps its whole native path.
  std::string Windows(std::string_view native) const;

  /// The current directory as a Windows path; `\` where it lies outside of the root.
  std::string CurrentDirectory() const;

 private:
  bool Inside(std::string_view native) const;
  std::string NativeCurrentDirectory() const;

  std::string root_;  // without a separator at its end
};

}  // namespace qb
