#pragma once

#include <string>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/linux/FileDescriptor.h"

namespace qb {

/// Collects what is written and hands it to the system in large pieces.
class LinuxFileWriter : public FileWriter {
 public:
  /// Failures are raised about `path`.
  LinuxFileWriter(FileDescriptor file, std::string native, std::string path)
      : file_(std::move(file)), native_(std::move(native)), path_(std::move(path)) {}
  /// Writes what is still there. Nobody can be told of a failure here; `Flush` before tells of it.
  ~LinuxFileWriter() override;

  void Write(std::string_view bytes) override;
  void Flush() override;

 private:
  FileDescriptor file_;
  std::string native_;
  std::string path_;
  std::string pending_;
};

}  // namespace qb
