#pragma once

#include <string>

#include "platform/linux/FileDescriptor.h"

namespace qb {

/// The folder of a native path.
std::string FolderOf(const std::string& native);

/// A new file in the folder of the one that it will replace; it goes with the object unless it has been moved
/// into its place.
class TemporaryFile {
 public:
  TemporaryFile(const std::string& folder, unsigned mode);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  /// 0, or the error number of the system.
  int OpenError() const { return error_; }
  FileDescriptor& File() { return file_; }
  /// Takes the place of `target`, a link there included. 0, or the error number.
  int MoveTo(const std::string& target);

 private:
  std::string name_;
  FileDescriptor file_;
  int error_ = 0;
  bool moved_ = false;
};

}  // namespace qb
