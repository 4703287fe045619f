#include "wx/CommandTail.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <filesystem>

#include "wx/WxText.h"

namespace qb {

std::string CommandTail(const std::vector<std::string>& arguments) {
  std::string tail = fmt::format("{}", fmt::join(arguments, " "));
  // One with `\` in front is absolute already, as the program writes paths.
  if (tail.empty() || tail.front() == '\\') return tail;
  return KeptPath(std::filesystem::absolute(tail).lexically_normal().string());
}

}  // namespace qb
