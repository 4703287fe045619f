#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qb {

/// Between the program's paths and the absolute paths that the system's wide calls take: long ones carry the
/// prefix that lifts the limit of 260 characters. The root of the drive may be any folder, for tests.
class Win32Paths {
 public:
  /// `root` is the native folder that stands for a path's single leading `\`; empty: the current drive.
  explicit Win32Paths(const std::string& root = {});

  /// Nothing for a path that no file can have: an empty one, one with a NUL, of a device, or of a stream
  /// inside a file.
  std::optional<std::wstring> Native(std::string_view path) const;
  /// The same; raises 75 where there is none.
  std::wstring NativeOrRaise(std::string_view path) const;

  /// The program's path of an absolute native one. What lies outside of the root keeps its whole path.
  std::string Windows(std::wstring_view native) const;

  /// With a root, `\` where the directory lies outside of it.
  std::string CurrentDirectory() const;

  /// Whether a single leading `\` means a folder of its own.
  bool HasRoot() const { return !root_.empty(); }

 private:
  bool Inside(std::wstring_view native) const;

  std::wstring root_;  // without a separator at its end, without prefix
};

/// A name in a native folder; a long path gets the prefix that its folder alone may not have needed.
std::wstring InFolder(const std::wstring& folder, std::wstring_view name);

/// A native path as other programs and the shell understand it: without prefix, and in its short form if it
/// would be too long for them.
std::wstring ForOthers(const std::wstring& native);

/// A native path without its prefix.
std::wstring WithoutPrefix(std::wstring_view native);

/// The folder of a native path.
std::wstring FolderOf(const std::wstring& native);

/// The absolute path that is left of an existing file or folder when its links are resolved, without prefix;
/// nothing if it does not exist or its volume has no name.
std::optional<std::wstring> FinalName(const std::wstring& native);

}  // namespace qb
