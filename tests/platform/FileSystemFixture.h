#pragma once

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/HostPlatform.h"
#include "support/FolderTest.h"
#include "support/Raises.h"

namespace qb {

/// The operating system's files on a drive of their own.
class FileSystemTest : public FolderTest {
 protected:
  /// What is in a folder, in the order of bytes.
  std::vector<std::string> NamesIn(std::string_view folder) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Native(folder))) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::unique_ptr<FileSystem> owner_ = MakeHostFileSystem(Root());

 protected:
  FileSystem& files_ = *owner_;
};

}  // namespace qb
