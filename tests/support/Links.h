#pragma once

#include <filesystem>
#include <system_error>

namespace qb {

/// Why a test about links is skipped.
inline constexpr const char* kNoLinks = "links cannot be made here";

/// Makes a link to a file, or to a folder. False where the platform's library makes none.
inline bool MadeLink(const std::filesystem::path& target, const std::filesystem::path& link) {
  std::error_code failed;
  std::filesystem::create_symlink(target, link, failed);
  if (failed && failed != std::errc::function_not_supported) {
    throw std::filesystem::filesystem_error("link", target, link, failed);
  }
  return !failed;
}
inline bool MadeFolderLink(const std::filesystem::path& target, const std::filesystem::path& link) {
  std::error_code failed;
  std::filesystem::create_directory_symlink(target, link, failed);
  if (failed && failed != std::errc::function_not_supported) {
    throw std::filesystem::filesystem_error("link", target, link, failed);
  }
  return !failed;
}

}  // namespace qb
