#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/CMyFileTime.h"

namespace qb {

/// The value of a key of a profile file, whole however long it is; `defaultValue` if file, section or key is
/// missing.
std::string GetIniEntry(std::string_view file, std::string_view section, std::string_view key,
                        std::string_view defaultValue);

/// Forces a profile file to disk. A section named "0" goes with it.
void flushINIFile(std::string_view file);

/// The caption without its menu number: "&2 C:\a.pxf" gives "C:\a.pxf".
std::string StripMenuAccess(std::string_view text);

/// Everything that goes into the open-file dialog and comes back.
struct OpenFileArguments {
  std::string fileName;   ///< in and out
  std::string fileTitle;  ///< in and out
  bool fileMustExist = true;
  bool multiSelect = false;
  bool readOnly = false;  ///< in and out
  bool hideReadOnly = true;
  std::string filter;            ///< in and out: descriptions and patterns separated by `|`
  std::int32_t filterIndex = 1;  ///< in and out
  std::string initialDirectory;
  std::string title;
  std::string defaultExtension;
  std::int64_t owner = -1;  ///< window handle; -1: none
  std::int32_t flags = 0;   ///< in and out
};

/// Shows the open-file dialog. False when it was cancelled.
bool VBGetOpenFileName(OpenFileArguments& arguments);

/// The n-th pair of NUL-terminated texts of a filter, the NUL between its halves included; empty if there is
/// none.
std::string GetFilterPart(std::string_view filter, std::int32_t n);

/// Puts a text on the clipboard; failures are ignored.
void CopyToClipboard(std::string_view text, std::int16_t format);

/// Copies over an existing file; true on success.
bool CopyFileOver(std::string_view source, std::string_view destination);

/// Copies all files of a directory; those that fail are passed over. False only if the listing failed.
bool CopyDirectoryFiles(std::string_view source, std::string_view destination);

}  // namespace qb
