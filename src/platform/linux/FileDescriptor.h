#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "platform/FileSystem.h"

namespace qb {

/// An open file of the system; closed with the object. Functions give 0 or the system's error number.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  /// Opens `native`, closed in programs that are started. `Get` is -1 and errno is set if that failed.
  FileDescriptor(const std::string& native, int flags, unsigned mode = 0);
  /// Takes over a descriptor that is open.
  explicit FileDescriptor(int number) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~FileDescriptor();

  int Get() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }

  /// Writes all bytes; small pieces are gathered first.
  int WriteAll(std::string_view bytes) const;
  int WriteAll(const Pieces& pieces) const;
  /// Appends all bytes from the present position to the end to `bytes`; `size` is how many are expected.
  int ReadAll(std::string& bytes, std::size_t size) const;
  /// Waits until the file is on the disk.
  int Sync() const;
  /// Closes now, which may tell of a failed write.
  int Close();

 private:
  int number_ = -1;
};

}  // namespace qb
