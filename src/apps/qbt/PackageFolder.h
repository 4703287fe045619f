#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qb {

/// All files below a folder, looked at once. They are found regardless of case, as the program finds them.
class PackageFolder {
 public:
  struct File {
    std::uintmax_t size = 0;
    bool isLink = false;
    std::string path;              ///< from the folder on, as it is spelled there, with `\`
    std::uint32_t listedLine = 0;  ///< for the caller's notes
  };

  explicit PackageFolder(const std::filesystem::path& folder);

  /// The file of a path from the folder on; null if there is none, or if a link of a folder leads to it.
  File* Find(std::string_view path);
  std::unordered_map<std::string, File>& Files() { return files_; }
  /// Why a part of the folder could not be looked at; empty if all of it could.
  const std::string& Failure() const { return failure_; }

  /// A path as it is compared: in small letters, without empty names and names of one dot.
  static std::string Folded(std::string_view path);

 private:
  std::unordered_map<std::string, File> files_;  // by folded path
  std::string failure_;
};

}  // namespace qb
