#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/LinuxFileSystem.h"
#include "runtime/RuntimeError.h"
#include "support/FolderTest.h"

namespace qb {

/// The number that `work` raises; 0 if it raises nothing.
template <class Work>
long Raised(Work work) {
  try {
    work();
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

/// The files of Linux on a drive of their own.
class LinuxFileSystemTest : public FolderTest {
 protected:
  std::vector<std::string> NamesIn(std::string_view folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Native(folder))) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }
  mode_t Mode(std::string_view path) const {
    struct stat status {};
    EXPECT_EQ(stat(Native(path).c_str(), &status), 0);
    return status.st_mode & 07777U;
  }

  LinuxFileSystem files_{Root()};
};

}  // namespace qb
