#pragma once

#include "platform/HeldProfile.h"
#include "platform/Registry.h"
#include "platform/TextCodec.h"

namespace qb {

/// Tells the code page of a package: that of the program's setting `AnsiCodePage`, a decimal number, if there
/// is one, else that of the package's target language. `registry` and `codec` must outlive the result.
CodePageChooser PackageCodePageChooser(Registry& registry, TextCodec& codec);

}  // namespace qb
