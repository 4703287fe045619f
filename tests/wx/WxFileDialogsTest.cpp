#include <gmock/gmock.h>

#include <string>

#include "wx/WxFileDialogs.h"

namespace qb {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

TEST(WxFileDialogsTest, JoinedNames_AreTheDirectoryAndEachNameBehindABlank) {
  EXPECT_EQ(JoinedNames(R"(\home\u)", {"a.css", "b.gif"}), R"(\home\u a.css b.gif)");
}

TEST(WxFileDialogsTest, NamesThatCannotBeJoined_NoBlanks_AreNone) {
  EXPECT_THAT(NamesThatCannotBeJoined(R"(\home\u)", {"a.css", "b.gif"}), IsEmpty());
}

TEST(WxFileDialogsTest, NamesThatCannotBeJoined_FolderWithABlank_AreAll) {
  EXPECT_THAT(NamesThatCannotBeJoined(R"(\home\my files)", {"a.css", "b.gif"}),
              ElementsAre("a.css", "b.gif"));
}

TEST(WxFileDialogsTest, NamesThatCannotBeJoined_NamesWithABlank_AreThose) {
  EXPECT_THAT(NamesThatCannotBeJoined(R"(\home\u)", {"a.css", "my b.gif", "c.gif"}), ElementsAre("my b.gif"));
}

TEST(WxFileDialogsTest, NamesThatCannotBeJoined_MoreThanTheTextHolds_AreThoseBehind) {
  const std::string half(1019, 'x');
  EXPECT_THAT(NamesThatCannotBeJoined(R"(\u)", {half + "1", half + "2", "c"}), IsEmpty());
  EXPECT_THAT(NamesThatCannotBeJoined(R"(\u)", {half + "1", half + "2", "too.gif"}), ElementsAre("too.gif"));
}

}  // namespace
}  // namespace qb
