#include "wx/CommandTail.h"

#ifdef __WXMSW__
#include <wx/filename.h>
// Behind it, since it defines what the toolkit's headers take back.
#include <windows.h>

#include <algorithm>
#else
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <filesystem>
#endif

#include "wx/WxText.h"

namespace qb {

#ifdef __WXMSW__
std::string CommandTail(std::wstring_view line) {
  bool isQuoted = false;
  std::size_t end = 0;
  for (; end < line.size() && (isQuoted || line[end] != L' '); ++end) {
    if (line[end] == L'"') isQuoted = !isQuoted;
  }
  line.remove_prefix(std::min(line.find_first_not_of(L' ', end), line.size()));
  if (line.empty() || line.front() == L'"') return FromWx(wxString(line.data(), line.size()));
  wxFileName name(wxString(line.data(), line.size()));
  name.MakeAbsolute();
  return FromWx(name.GetFullPath());
}

std::string ProcessCommandTail(int, char**) {
  return CommandTail(GetCommandLineW());
}
#else
std::string CommandTail(const std::vector<std::string>& arguments) {
  std::string tail = fmt::format("{}", fmt::join(arguments, " "));
  // One with `\` in front is absolute already, as the program writes paths.
  if (tail.empty() || tail.front() == '\\') return tail;
  return KeptPath(std::filesystem::absolute(tail).lexically_normal().string());
}

std::string ProcessCommandTail(int argc, char** argv) {
  return CommandTail({argv + 1, argv + argc});
}
#endif

}  // namespace qb
