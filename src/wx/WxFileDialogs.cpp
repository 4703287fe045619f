#include "wx/WxFileDialogs.h"

#include <wx/filedlg.h>
#include <wx/filename.h>

#include <algorithm>
#include <cctype>

#include "runtime/Text.h"
#include "wx/WxText.h"
#include "wx/WxToolkit.h"

namespace qb {
namespace {

constexpr std::size_t kLongestName = 2047;

std::string ToolkitPattern(std::string_view pattern) {
#ifdef __WXGTK__
  if (pattern == "*.*") return "*";
  std::string anyCase;
  for (const char each : pattern) {
    const auto letter = static_cast<unsigned char>(each);
    if (std::isalpha(letter) == 0) {
      anyCase += each;
      continue;
    }
    anyCase += {'[', static_cast<char>(std::tolower(letter)), static_cast<char>(std::toupper(letter)), ']'};
  }
  return anyCase;
#else
  return std::string(pattern);
#endif
}

std::string Cut(const std::string& name) {
  return std::string(FirstCharacters(name, kLongestName));
}

long Style(const OpenFileRecord& record) {
  long style = wxFD_OPEN;
  if ((record.flags & openfile::kFileMustExist) != 0) style |= wxFD_FILE_MUST_EXIST;
  if ((record.flags & openfile::kAllowMultiSelect) != 0) style |= wxFD_MULTIPLE;
  return style;
}

/// One path, or the directory and the names behind it.
std::string ChosenNames(const wxArrayString& paths) {
  if (paths.size() == 1) return KeptPath(FromWx(paths[0]));
  std::string names = KeptPath(FromWx(wxFileName(paths[0]).GetPath()));
  for (const wxString& path : paths) names += " " + FromWx(wxFileName(path).GetFullName());
  return names;
}

}  // namespace

std::string ToolkitFilter(std::string_view pairs) {
  std::string filter;
  bool isPattern = false;
  while (!pairs.empty() && pairs.front() != '\0') {
    const std::string_view piece = pairs.substr(0, pairs.find('\0'));
    if (!filter.empty()) filter += '|';
    filter += isPattern ? ToolkitPattern(piece) : std::string(piece);
    isPattern = !isPattern;
    pairs.remove_prefix(std::min(pairs.size(), piece.size() + 1));
  }
  return isPattern ? std::string() : filter;  // a description without a pattern is no filter
}

bool WxFileDialogs::GetOpenFileName(OpenFileRecord& record) {
  const wxFileName preset(ToWx(ShownPath(record.fileName)));
  const std::string directory = ShownPath(record.initialDirectory);
  wxFileDialog dialog(ParentForDialogs(), ToWx(record.title),
                      directory.empty() ? preset.GetPath() : ToWx(directory), preset.GetFullName(),
                      ToWx(ToolkitFilter(record.filter)), Style(record));
  if (record.filterIndex > 0) dialog.SetFilterIndex(static_cast<int>(record.filterIndex) - 1);
  if (dialog.ShowModal() != wxID_OK) return false;
  wxArrayString paths;
  dialog.GetPaths(paths);
  record.fileName = Cut(ChosenNames(paths));
  record.fileTitle = paths.size() == 1 ? Cut(FromWx(wxFileName(paths[0]).GetFullName())) : std::string();
  record.filterIndex = static_cast<std::uint32_t>(dialog.GetFilterIndex() + 1);
  return true;
}

}  // namespace qb
