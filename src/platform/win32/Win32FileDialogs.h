#pragma once

#include <cstdint>
#include <string>

#include "platform/Dialogs.h"
#include "platform/win32/Win32Paths.h"

namespace qb {

/// The system's own dialog. Without an owner it belongs to the program's active window. What makes it fail is
/// raised: 5 for files that are too many for one answer, 7, or 75 for a preset name that no file can have.
class Win32FileDialogs : public FileDialogs {
 public:
  explicit Win32FileDialogs(const std::string& root = {}) : paths_(root) {}
  bool GetOpenFileName(OpenFileRecord& record) override;

 private:
  Win32Paths paths_;
};

/// Raises what the system's code for a failed dialog means; 0, a cancelled one, is none.
void RaiseDialogFailure(std::uint32_t code);

}  // namespace qb
