#include "wx/WxFileDialogs.h"

#include <wx/filedlg.h>
#include <wx/filename.h>

#include <algorithm>
#include <cctype>

#include "platform/ChosenFiles.h"
#include "runtime/Text.h"
#include "wx/WxText.h"
#include "wx/WxToolkit.h"

namespace qb {
namespace {

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
  return std::string(FirstCharacters(name, kLongestChoice));
}

long Style(const OpenFileRecord& record) {
  long style = wxFD_OPEN;
  if ((record.flags & openfile::kFileMustExist) != 0) style |= wxFD_FILE_MUST_EXIST;
  if ((record.flags & openfile::kAllowMultiSelect) != 0) style |= wxFD_MULTIPLE;
  return style;
}

/// What the user has chosen.
struct Choice {
  Choice() = default;
  explicit Choice(const wxFileDialog& dialog) {
    wxArrayString paths;
    dialog.GetPaths(paths);
    if (!paths.empty()) directory = KeptPath(FromWx(wxFileName(paths[0]).GetPath()));
    for (const wxString& path : paths) names.push_back(FromWx(wxFileName(path).GetFullName()));
    if (paths.size() == 1) path = KeptPath(FromWx(paths[0]));
  }

  std::string path;  ///< of a single file
  std::string directory;
  std::vector<std::string> names;
};

/// Lets the user choose until the choice can be given. False when cancelled.
bool Choose(wxFileDialog& dialog, Choice& choice) {
  while (dialog.ShowModal() == wxID_OK) {
    choice = Choice(dialog);
    if (choice.names.size() < 2) return true;
    const std::vector<std::string> notTaken = NamesThatCannotBeJoined(choice.directory, choice.names);
    if (notTaken.empty()) return true;
    TellNamesThatCannotBeJoined(ShownPath(choice.directory), notTaken);
    dialog.SetDirectory(ToWx(ShownPath(choice.directory)));
  }
  return false;
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
  const std::string filter = ToolkitFilter(record.filter);
  wxFileDialog dialog(ParentForDialogs(), ToWx(record.title),
                      directory.empty() ? preset.GetPath() : ToWx(directory), preset.GetFullName(),
                      ToWx(filter), Style(record));
  if (!filter.empty() && record.filterIndex > 0)
    dialog.SetFilterIndex(static_cast<int>(record.filterIndex) - 1);
  Choice choice;
  if (!Choose(dialog, choice)) return false;
  const bool single = choice.names.size() == 1;
  record.fileName = Cut(single ? choice.path : JoinedNames(choice.directory, choice.names));
  record.fileTitle = single ? Cut(choice.names[0]) : std::string();
  if (!filter.empty()) record.filterIndex = static_cast<std::uint32_t>(dialog.GetFilterIndex() + 1);
  return true;
}

}  // namespace qb
