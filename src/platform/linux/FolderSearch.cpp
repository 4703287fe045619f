#include "platform/linux/FolderSearch.h"

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "runtime/Text.h"

namespace qb {
namespace {

FileTime TimeOf(const statx_timestamp& time) {
  return {time.tv_sec, static_cast<std::int32_t>(time.tv_nsec)};
}

struct FreePattern {
  void operator()(GPatternSpec* pattern) const { g_pattern_spec_free(pattern); }
};
using Pattern = std::unique_ptr<GPatternSpec, FreePattern>;

std::string ValidUpperCase(std::string_view text) {
  const std::unique_ptr<char, decltype(&g_free)> valid(
      g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())), &g_free);
  return UpperCase(valid.get());
}

unsigned AttributesOf(const std::string& native, unsigned mode) {
  unsigned attributes = S_ISDIR(mode) ? attribute::kDirectory : 0U;
  if ((mode & 0222U) == 0 || access(native.c_str(), W_OK) != 0) attributes |= attribute::kReadOnly;
  return attributes;
}

}  // namespace

std::optional<FileInfo> InfoOf(const std::string& native) {
  struct statx status {};
  if (statx(AT_FDCWD, native.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) return std::nullopt;
  FileInfo info;
  std::string_view name = native;
  while (name.size() > 1 && name.ends_with('/')) name.remove_suffix(1);
  info.name = name.substr(name.rfind('/') + 1);
  info.attributes = AttributesOf(native, status.stx_mode);
  info.size = status.stx_size;
  info.lastWrite = TimeOf(status.stx_mtime);
  info.creation = TimeOf((status.stx_mask & STATX_BTIME) != 0 ? status.stx_btime : status.stx_ctime);
  return info;
}

bool IsWanted(unsigned attributes, unsigned asked) {
  constexpr unsigned kOnlyIfAsked = attribute::kHidden | attribute::kSystem | attribute::kDirectory;
  return (attributes & kOnlyIfAsked & ~asked) == 0;
}

std::vector<std::string> NamesInFolder(const std::string& folder, std::string_view pattern, unsigned asked) {
  const bool all = pattern.empty() || pattern == "*" || pattern == "*.*";  // also names without a dot
  const Pattern compiled(g_pattern_spec_new(ValidUpperCase(pattern).c_str()));
  std::vector<std::pair<std::string, std::string>> found;
  std::error_code failed;
  for (std::filesystem::directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    std::string name = entry->path().filename().string();
    std::string upper = ValidUpperCase(name);
    if (!all && g_pattern_spec_match_string(compiled.get(), upper.c_str()) == FALSE) continue;
    struct stat status {};
    if (stat(entry->path().c_str(), &status) != 0) continue;
    if (IsWanted(S_ISDIR(status.st_mode) ? attribute::kDirectory : 0U, asked)) {
      found.emplace_back(std::move(upper), std::move(name));
    }
  }
  std::sort(found.begin(), found.end());
  std::vector<std::string> names;
  names.reserve(found.size());
  for (auto& [upper, name] : found) names.push_back(std::move(name));
  return names;
}

}  // namespace qb
