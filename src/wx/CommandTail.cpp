#include "wx/CommandTail.h"

#include <wx/filename.h>
#ifdef __WXMSW__
#include <windows.h>
#endif
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "wx/WxText.h"

namespace qb {

std::string CommandTail(const std::vector<std::string>& arguments) {
  std::string tail = fmt::format("{}", fmt::join(arguments, " "));
  // One with `\` in front is absolute already, as the program writes paths.
  if (tail.empty() || tail.front() == '\\') return tail;
  return KeptPath(std::filesystem::absolute(tail).lexically_normal().string());
}

#ifdef __WXMSW__
std::string ProcessCommandTail(int, char**) {
  std::wstring_view line = GetCommandLineW();
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
#else
std::string ProcessCommandTail(int argc, char** argv) {
  return CommandTail({argv + 1, argv + argc});
}
#endif

}  // namespace qb
