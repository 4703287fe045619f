#include "apps/office/LinkAddress.h"

#include <glib.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

namespace qb::office {
namespace {

using GText = std::unique_ptr<char, decltype(&g_free)>;
/// The parts of a path, written as in an address.
using Parts = std::vector<std::string>;

Parts Split(std::string_view path) {
  Parts parts;
  for (std::size_t begin = 0; begin <= path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    parts.emplace_back(path.substr(begin, end - begin));
    begin = end + 1;
  }
  return parts;
}

Parts FolderOf(const std::string& file) {
  const GText escaped(g_uri_escape_string(file.c_str(), "/", true), g_free);
  Parts parts = Split(escaped.get());
  parts.pop_back();
  return parts;
}

std::string Joined(const Parts& parts, std::size_t begin) {
  std::string path;
  for (std::size_t part = begin; part < parts.size(); ++part)
    path += (part == begin ? "" : "/") + parts[part];
  return path;
}

bool AreSame(const std::string& one, const std::string& other) {
  const GText first(g_uri_unescape_string(one.c_str(), nullptr), g_free);
  const GText second(g_uri_unescape_string(other.c_str(), nullptr), g_free);
  return first && second && std::string_view(first.get()) == second.get();
}

bool IsRelative(const std::string& address) {
  const std::size_t mark = address.find_first_of(":/?#");
  return !address.empty() && (mark == std::string::npos || (mark > 0 && address[mark] != ':'));
}

/// The path that `relative` leads to from `folder`, from the root on.
Parts Resolve(Parts folder, const Parts& relative) {
  for (const std::string& part : relative) {
    if (part != "..") {
      folder.push_back(part);
    } else if (folder.size() > 1) {
      folder.pop_back();
    }
  }
  return folder;
}

}  // namespace

std::string AddressIn(const std::string& document, const std::string& written, const std::string& address) {
  // The office begins with ./ where a name could be taken for a scheme.
  if (!IsRelative(address)) return address;
  const std::size_t tail = std::min(address.find_first_of("?#"), address.size());
  const Parts target = Resolve(FolderOf(written), Split(std::string_view(address).substr(0, tail)));
  const Parts folder = FolderOf(document);
  std::size_t common = 0;
  while (common < folder.size() && common + 1 < target.size() && AreSame(folder[common], target[common]))
    ++common;
  // The first part of both is empty: the root.
  if (common <= 1 && folder.size() > 1) return "file://" + Joined(target, 0) + address.substr(tail);
  std::string result;
  for (std::size_t up = common; up < folder.size(); ++up) result += "../";
  return result + Joined(target, common) + address.substr(tail);
}

}  // namespace qb::office
