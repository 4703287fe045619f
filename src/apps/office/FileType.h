#pragma once

#include <com/sun/star/uno/XComponentContext.hpp>
#include <string>

#include "apps/office/Uno.h"

namespace qb::office {

/// How the office reads a file.
struct FileType {
  /// The office's names of the type and of the filter.
  OUString type;
  OUString filter;
  /// Whether the office can store such a document as what it was.
  bool isWritable = false;
  /// "text", "presentation", "drawing" or "web"; empty for another kind of document.
  std::string kind;
};

/// Looks into the file. Raises `Failure` "damaged" if it is of no type, or of one that its name does not
/// tell: stored again it would be something else than its name says. Only inside a call on the office's main
/// thread.
FileType DetectFileType(const Reference<uno::XComponentContext>& context, const std::string& path);

}  // namespace qb::office
