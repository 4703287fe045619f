#pragma once

#include <cstdint>
#include <string>

#include "platform/win32/SystemHandle.h"

namespace qb {

/// A new file in the folder of the one that it will replace; it goes with the object unless it has been moved
/// into its place.
class Win32TemporaryFile {
 public:
  explicit Win32TemporaryFile(const std::wstring& folder);
  Win32TemporaryFile(const Win32TemporaryFile&) = delete;
  Win32TemporaryFile& operator=(const Win32TemporaryFile&) = delete;
  ~Win32TemporaryFile();

  /// 0, or the error number of the system.
  std::uint32_t OpenError() const { return error_; }
  const std::wstring& Name() const { return name_; }
  SystemHandle& File() { return file_; }
  /// Takes the place of `target`, a link there included, in one step that is on the disk afterwards. Waits a
  /// moment for programs that only look at the old file. 0, or the error number.
  std::uint32_t MoveTo(const std::wstring& target);

 private:
  std::wstring name_;
  SystemHandle file_;
  std::uint32_t error_ = 0;
  bool moved_ = false;
};

}  // namespace qb
