#pragma once

#include <string_view>

namespace qb {

/// Which editors and features a document has.
struct LoioCapabilities {
  bool documentBridge = false;
  bool htmlEditor = false;
  bool notePad = false;
  bool titleProperty = false;
  bool tradosSupport = false;
  bool titleToSet = false;
  bool hyperlink = false;
  bool singleDocEditor = false;
};

/// The capabilities that edit process and document format give, both compared exactly.
LoioCapabilities CapabilitiesOf(std::string_view process, std::string_view format);

}  // namespace qb
