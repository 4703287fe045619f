#include "apps/qbt/PackageFolder.h"

#include <algorithm>
#include <system_error>

#include "apps/qbt/PackageArgument.h"
#include "apps/qbt/PackageSource.h"
#include "runtime/Text.h"

namespace qb {
namespace {

void FoldCase(std::string& text) {
  if (!IsAscii(text)) {
    text = LowerCase(text);
    return;
  }
  for (char& byte : text) {
    if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
  }
}

}  // namespace

std::string PackageFolder::Folded(std::string_view path) {
  std::string folded;
  folded.reserve(path.size());
  while (!path.empty()) {
    const std::size_t length = std::min(path.find_first_of("\\/"), path.size());
    const std::string_view name = path.substr(0, length);
    path.remove_prefix(std::min(length + 1, path.size()));
    if (name.empty() || name == ".") continue;
    if (!folded.empty()) folded += '\\';
    folded += name;
  }
  FoldCase(folded);
  return folded;
}

PackageFolder::PackageFolder(const std::filesystem::path& folder) {
  namespace fs = std::filesystem;
  std::error_code failed;
  const std::size_t front = folder.string().size() + 1;
  for (fs::recursive_directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    std::error_code unknown;
    const bool isLink = entry->is_symlink(unknown);
    if (!isLink && entry->is_directory(unknown)) continue;
    File file;
    file.isLink = isLink;
    file.path = ShownPath(entry->path().string().substr(front));
    const std::uintmax_t size = entry->file_size(unknown);
    if (unknown) continue;  // a link to a folder, or to nothing
    file.size = size;
    std::string key = Folded(file.path);
    files_.emplace(std::move(key), std::move(file));
  }
  if (failed) failure_ = failed.message();
}

PackageFolder::File* PackageFolder::Find(std::string_view path) {
  const auto found = files_.find(Folded(path));
  return found == files_.end() ? nullptr : &found->second;
}

}  // namespace qb
