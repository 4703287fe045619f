#include <gtest/gtest.h>

#include <string>

#include "wx/WxFileDialogs.h"

namespace qb {
namespace {

using namespace std::string_literals;

TEST(WxFileDialogsTest, ToolkitFilter_Empty_IsEmpty) {
  EXPECT_EQ(ToolkitFilter({}), "");
  EXPECT_EQ(ToolkitFilter("\0\0"s), "");
}

TEST(WxFileDialogsTest, ToolkitFilter_DescriptionWithoutPattern_IsNoFilter) {
  EXPECT_EQ(ToolkitFilter("Files\0\0"s), "");
}

}  // namespace
}  // namespace qb
