#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/Win32FileSystem.h"
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

/// The files of Windows on a drive of their own.
class Win32FileSystemTest : public FolderTest {
 protected:
  std::vector<std::string> NamesIn(std::string_view folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Native(folder))) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  Win32FileSystem files_{Root()};
};

}  // namespace qb
