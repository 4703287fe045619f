#include "platform/linux/LinuxPaths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace qb {
namespace {

std::string Swapped(std::string_view path) {
  std::string swapped(path);
  for (char& byte : swapped) {
    if (byte == '\\') {
      byte = '/';
    } else if (byte == '/') {
      byte = '\\';
    }
  }
  return swapped;
}

}  // namespace

LinuxPaths::LinuxPaths(const std::string& root) {
  if (root.empty()) return;
  std::error_code failed;
  const std::filesystem::path resolved = std::filesystem::weakly_canonical(root, failed);
  root_ = failed ? root : resolved.string();
  while (root_.ends_with('/')) root_.pop_back();
}

std::string LinuxPaths::Native(std::string_view path) const {
  std::string native = Swapped(path);
  if (!native.starts_with('/'))
    native.insert(0, NativeCurrentDirectory() + "/");
  else
    native.insert(0, root_);
  return native;
}

std::string LinuxPaths::Windows(std::string_view native) const {
  if (!Inside(native)) return Swapped(native);
  native.remove_prefix(root_.size());
  return native.empty() ? R"(\)" : Swapped(native);
}

std::string LinuxPaths::CurrentDirectory() const {
  return Windows(NativeCurrentDirectory() + (NativeCurrentDirectory().empty() ? "/" : ""));
}

bool LinuxPaths::Inside(std::string_view native) const {
  return native.starts_with(root_) && (native.size() == root_.size() || native[root_.size()] == '/');
}

std::string LinuxPaths::NativeCurrentDirectory() const {
  std::error_code failed;
  const std::string directory = std::filesystem::current_path(failed).string();
  if (failed || !Inside(directory)) return root_;
  return directory == "/" ? std::string{} : directory;
}

}  // namespace qb
