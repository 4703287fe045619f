#include <gmock/gmock.h>

#include "platform/ChosenFiles.h"
#include "support/TestPlatform.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

TEST(ChosenFilesTest, JoinedNames_AreTheDirectoryAndEachNameBehindABlank) {
  EXPECT_EQ(JoinedNames(R"(\home\u)", {"a.css", "b.gif"}), R"(\home\u a.css b.gif)");
}

TEST(ChosenFilesTest, NamesThatCannotBeJoined_NoBlanks_AreNone) {
  EXPECT_THAT(NamesThatCannotBeJoined(R"(\home\u)", {"a.css", "b.gif"}), IsEmpty());
}

TEST(ChosenFilesTest, NamesThatCannotBeJoined_FolderWithABlank_AreAll) {
  EXPECT_THAT(NamesThatCannotBeJoined(R"(\home\my files)", {"a.css", "b.gif"}),
              ElementsAre("a.css", "b.gif"));
}

TEST(ChosenFilesTest, NamesThatCannotBeJoined_NamesWithABlank_AreThose) {
  EXPECT_THAT(NamesThatCannotBeJoined(R"(\home\u)", {"a.css", "my b.gif", "c.gif"}), ElementsAre("my b.gif"));
}

TEST(ChosenFilesTest, NamesThatCannotBeJoined_MoreThanTheTextHolds_AreThoseBehind) {
  const std::string half(1019, 'x');
  EXPECT_THAT(NamesThatCannotBeJoined(R"(\u)", {half + "1", half + "2", "c"}), IsEmpty());
  EXPECT_THAT(NamesThatCannotBeJoined(R"(\u)", {half + "1", half + "2", "too.gif"}), ElementsAre("too.gif"));
}

class ChosenFilesBoxTest : public PlatformTest {};

TEST_F(ChosenFilesBoxTest, NamesThatCannotBeJoined_AreToldUpToTen) {
  TellNamesThatCannotBeJoined("/home/my files", std::vector<std::string>(11, "a.css"));
  ASSERT_EQ(Boxes().Shown().size(), 1U);
  EXPECT_EQ(Boxes().Shown()[0].style, box::kExclamation);
  const std::string& text = Boxes().Shown()[0].text;
  EXPECT_THAT(text, HasSubstr("These files of '/home/my files' cannot be taken together"));
  std::string ten;
  for (int i = 0; i < 10; ++i) ten += "a.css\r\n";
  EXPECT_THAT(text, HasSubstr(ten + "..."));
  EXPECT_THAT(text, Not(HasSubstr(ten + "a.css")));
}

}  // namespace
}  // namespace qb
