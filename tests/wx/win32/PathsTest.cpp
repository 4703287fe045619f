#include <gtest/gtest.h>

#include "wx/WxText.h"

namespace qb {
namespace {

TEST(PathsTest, ShownPath_KeptPath_LeavePathsAsTheyStand) {
  for (const char* path : {R"(C:\ü\a/b.pxf)", R"(\\server\share\b.pxf)", ""}) {
    EXPECT_EQ(ShownPath(path), path);
    EXPECT_EQ(KeptPath(path), path);
  }
}

}  // namespace
}  // namespace qb
