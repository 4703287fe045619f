#pragma once

#include <string>
#include <string_view>

#include "platform/Dialogs.h"

namespace qb {

/// File dialogs of the desktop. A choice of several files that could not be told apart by their blanks is
/// refused in a box that names them, and the user chooses again.
class WxFileDialogs : public FileDialogs {
 public:
  bool GetOpenFileName(OpenFileRecord& record) override;
};

/// Pairs of NUL-terminated texts as the toolkit writes them, with `|` between all pieces. A file system that
/// tells case apart gets patterns that do not.
std::string ToolkitFilter(std::string_view pairs);

}  // namespace qb
