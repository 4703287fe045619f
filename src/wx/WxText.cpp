#include "wx/WxText.h"

#include <wx/filename.h>

#include <algorithm>

#include "runtime/Text.h"

namespace qb {
namespace {

constexpr char kKeptSeparator = '\\';

std::string SwapSeparators(std::string_view path, char from, char to) {
  std::string swapped(path);
  if (from == to) return swapped;
  for (char& each : swapped) {
    if (each == from) {
      each = to;
    } else if (each == to) {
      each = from;
    }
  }
  return swapped;
}

char ShownSeparator() {
  return static_cast<char>(wxFileName::GetPathSeparator());
}

}  // namespace

wxString ToWx(std::string_view text) {
  wxString converted = wxString::FromUTF8(text.data(), text.size());
  if (!converted.empty() || text.empty()) return converted;
  // The toolkit refuses a text with one bad byte as a whole; a replacement sign keeps the rest readable.
  std::string repaired;
  while (!text.empty()) AppendCharacter(repaired, TakeCharacter(text));
  return wxString::FromUTF8(repaired.data(), repaired.size());
}

std::string FromWx(const wxString& text) {
  return text.utf8_string();
}

std::string ShownPath(std::string_view path) {
  return SwapSeparators(path, kKeptSeparator, ShownSeparator());
}

std::string KeptPath(std::string_view nativePath) {
  return SwapSeparators(nativePath, ShownSeparator(), kKeptSeparator);
}

}  // namespace qb
