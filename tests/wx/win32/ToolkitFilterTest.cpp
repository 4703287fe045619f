#include <gtest/gtest.h>

#include <string>

#include "wx/WxFileDialogs.h"

namespace qb {
namespace {

using namespace std::string_literals;

TEST(ToolkitFilterTest, Pairs_AreJoinedAndPatternsStandAsTheyAre) {
  EXPECT_EQ(ToolkitFilter("Package Exchange Files (*.pxf)\0*.pxf\0All Files (*.*)\0*.*\0\0"s),
            "Package Exchange Files (*.pxf)|*.pxf|All Files (*.*)|*.*");
}

TEST(ToolkitFilterTest, SeveralPatternsInOne_KeepTheirSeparator) {
  EXPECT_EQ(ToolkitFilter("Web\0*.htm;*.js\0\0"s), "Web|*.htm;*.js");
}

}  // namespace
}  // namespace qb
