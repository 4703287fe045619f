#include <gtest/gtest.h>

#include "wx/WxText.h"

namespace qb {
namespace {

TEST(PathsTest, ShownPath_KeptPath_SwapTheSeparatorsOnly) {
  EXPECT_EQ(ShownPath(R"(\home\ü\a/b.pxf)"), R"(/home/ü/a\b.pxf)");
  EXPECT_EQ(KeptPath(R"(/home/ü/a\b.pxf)"), R"(\home\ü\a/b.pxf)");
}

}  // namespace
}  // namespace qb
