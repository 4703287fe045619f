#pragma once

#include <string>

namespace qb::office {

/// The office writes addresses of files relative to the file that it writes. This is `address`, which stands
/// so in the file `written`, as it would stand in the file `document`. What has only the root in common with
/// the document's folder is named in full, `file:///c:/x.doc`. Other addresses stay as they are. Both files
/// are absolute paths.
std::string AddressIn(const std::string& document, const std::string& written, const std::string& address);

}  // namespace qb::office
