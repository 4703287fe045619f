#pragma once

#include <string>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/win32/SystemHandle.h"

namespace qb {

/// Collects what is written and hands it to the system in large pieces.
class Win32FileWriter : public FileWriter {
 public:
  /// Failures are raised about `path`.
  Win32FileWriter(SystemHandle file, std::wstring native, std::string path)
      : file_(std::move(file)), native_(std::move(native)), path_(std::move(path)) {}
  /// Writes what is still there. Nobody can be told of a failure here; `Flush` before tells of it.
  ~Win32FileWriter() override;

  void Write(std::string_view bytes) override;
  void Flush() override;

 private:
  SystemHandle file_;
  std::wstring native_;
  std::string path_;
  std::string pending_;
};

}  // namespace qb
