#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string_view>

#include "platform/FileSystemFixture.h"
#include "platform/linux/LinuxFileSystem.h"

namespace qb {

/// The files of Linux, with what only they have.
class LinuxFileSystemTest : public FileSystemTest {
 protected:
  mode_t Mode(std::string_view path) const {
    struct stat status {};
    EXPECT_EQ(stat(Native(path).c_str(), &status), 0);
    return status.st_mode & 07777U;
  }
};

}  // namespace qb
