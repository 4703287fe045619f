#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/linux/ExecLine.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::Optional;

TEST(ExecLine, ExecArguments_Table) {
  struct Row {
    std::string exec;
    std::vector<std::string> arguments;
  };
  const ExecFields fields{{"/p/a b.doc", "/p/src.doc"}, "pen", "My Editor", "/apps/e.desktop"};
  for (const Row& row : std::vector<Row>{
           {"editor %f", {"editor", "/p/a b.doc", "/p/src.doc"}},
           {"editor %F", {"editor", "/p/a b.doc", "/p/src.doc"}},
           {"editor %u --wait", {"editor", "/p/a b.doc", "--wait", "/p/src.doc"}},
           {"editor %U --wait", {"editor", "/p/a b.doc", "/p/src.doc", "--wait"}},
           {"editor", {"editor", "/p/a b.doc", "/p/src.doc"}},
           {"editor --open=%f", {"editor", "--open=/p/a b.doc", "/p/src.doc"}},
           {"editor %i %F", {"editor", "--icon", "pen", "/p/a b.doc", "/p/src.doc"}},
           {"editor --title %c %F", {"editor", "--title", "My Editor", "/p/a b.doc", "/p/src.doc"}},
           {"editor %k %F", {"editor", "/apps/e.desktop", "/p/a b.doc", "/p/src.doc"}},
           {"editor %d %D %n %N %v %m %F", {"editor", "/p/a b.doc", "/p/src.doc"}},
           {"editor 100%% %F", {"editor", "100%", "/p/a b.doc", "/p/src.doc"}},
           {"\"/opt/my editor\" \"\" \"a \\\"b\\\" \\$c\" %F",
            {"/opt/my editor", "", "a \"b\" $c", "/p/a b.doc", "/p/src.doc"}},
           {"editor; rm -rf $HOME `x` %F",
            {"editor;", "rm", "-rf", "$HOME", "`x`", "/p/a b.doc", "/p/src.doc"}},
           {"", {}},
           {"\"open quote", {}},
       }) {
    EXPECT_THAT(ExecArguments(row.exec, fields), ElementsAreArray(row.arguments)) << row.exec;
  }
}

TEST(ExecLine, ExecArguments_EntryWithoutIcon_HasNoIconArguments) {
  EXPECT_THAT(ExecArguments("editor %i %f", {{"/p/a"}, "", "", ""}), ElementsAre("editor", "/p/a"));
}

TEST(ExecLine, CommandWords_Table) {
  EXPECT_THAT(CommandWords("a 'b c' \"d e\""), Optional(ElementsAre("a", "b c", "d e")));
  EXPECT_EQ(CommandWords(""), std::nullopt);
  EXPECT_EQ(CommandWords("  "), std::nullopt);
  EXPECT_EQ(CommandWords("'open"), std::nullopt);
}

TEST(ExecLine, WithoutFieldCodes_Table) {
  EXPECT_EQ(WithoutFieldCodes("/usr/bin/firefox %u"), "/usr/bin/firefox");
  EXPECT_EQ(WithoutFieldCodes("browser --new-window %U"), "browser --new-window");
  EXPECT_EQ(WithoutFieldCodes("\"/opt/my browser\" %u"), "'/opt/my browser'");
}

}  // namespace
}  // namespace qb
