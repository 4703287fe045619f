#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Dialogs.h"

namespace qb {

/// File dialogs of the desktop. A choice of several files that could not be told apart by their blanks is
/// refused in a box that names them, and the user chooses again.
class WxFileDialogs : public FileDialogs {
 public:
  bool GetOpenFileName(OpenFileRecord& record) override;
};

/// Several chosen files as one text: their directory, and each name behind a blank.
std::string JoinedNames(std::string_view directory, const std::vector<std::string>& names);

/// Those of several chosen files that cannot be given as one text: all of them if their directory holds a
/// blank, else each whose name does, and those behind the longest text that can be given.
std::vector<std::string> NamesThatCannotBeJoined(std::string_view directory,
                                                 const std::vector<std::string>& names);

/// Pairs of NUL-terminated texts as the toolkit writes them, with `|` between all pieces. A file system that
/// tells case apart gets patterns that do not.
std::string ToolkitFilter(std::string_view pairs);

}  // namespace qb
