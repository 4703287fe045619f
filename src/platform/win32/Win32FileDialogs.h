#pragma once

#include <string>

#include "platform/Dialogs.h"
#include "platform/win32/Win32Paths.h"

namespace qb {

/// The system's own dialog.
class Win32FileDialogs : public FileDialogs {
 public:
  explicit Win32FileDialogs(const std::string& root = {}) : paths_(root) {}
  bool GetOpenFileName(OpenFileRecord& record) override;

 private:
  Win32Paths paths_;
};

}  // namespace qb
