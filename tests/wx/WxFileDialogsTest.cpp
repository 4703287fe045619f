#include <gtest/gtest.h>

#include <string>

#include "wx/WxFileDialogs.h"

namespace qb {
namespace {

using namespace std::string_literals;

TEST(WxFileDialogsTest, ToolkitFilter_Pairs_AreJoinedAndPatternsBlindToCase) {
  EXPECT_EQ(ToolkitFilter("Package Exchange Files (*.pxf)\0*.pxf\0All Files (*.*)\0*.*\0\0"s),
            "Package Exchange Files (*.pxf)|*.[pP][xX][fF]|All Files (*.*)|*");
}

TEST(WxFileDialogsTest, ToolkitFilter_Empty_IsEmpty) {
  EXPECT_EQ(ToolkitFilter({}), "");
  EXPECT_EQ(ToolkitFilter("\0\0"s), "");
}

TEST(WxFileDialogsTest, ToolkitFilter_DescriptionWithoutPattern_IsNoFilter) {
  EXPECT_EQ(ToolkitFilter("Files\0\0"s), "");
}

TEST(WxFileDialogsTest, ToolkitFilter_SeveralPatternsInOne_KeepTheirSeparator) {
  EXPECT_EQ(ToolkitFilter("Web\0*.htm;*.js\0\0"s), "Web|*.[hH][tT][mM];*.[jJ][sS]");
}

}  // namespace
}  // namespace qb
