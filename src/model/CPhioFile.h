#pragma once

#include "runtime/SharedText.h"

namespace qb {

/// The format of a primary file.
inline constexpr const char* kPrimaryFormat = "PRIM";

/// One component file of a language version.
struct CPhioFile {
  SharedText ShortName;
  SharedText FileFormat;  ///< "PRIM" marks the primary file
  SharedText FileName;    ///< with its extension, no directory
};

}  // namespace qb
