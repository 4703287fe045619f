#include <gmock/gmock.h>

#include "apps/qbt/Table.h"
#include "apps/qbt/Terminal.h"

namespace qb {
namespace {

TEST(TableTest, NumbersStandAtTheRight_TextsAtTheLeft) {
  Table table({{"No", true}, {"Name"}, {"Title"}});
  table.Add({"1", "A", "One"});
  table.Add({"10", "LONGER", ""});
  EXPECT_EQ("No  Name    Title\n 1  A       One\n10  LONGER\n", table.Text());
}

TEST(TableTest, WideCharactersTakeTwoColumns_AndMarksNone) {
  EXPECT_EQ(4U, ColumnsOf("日本"));
  EXPECT_EQ(1U, ColumnsOf("e\u0301"));
  Table table({{"Name"}, {"Title"}});
  table.Add({"日本", "x"});
  table.Add({"abcd", "x"});
  EXPECT_EQ("Name  Title\n日本  x\nabcd  x\n", table.Text());
}

TEST(TableTest, ATableWithoutHeadings_HasNoLineForThem) {
  Table table({{""}, {""}});
  table.Add({"Number", "3"});
  EXPECT_EQ("Number  3\n", table.Text());
}

TEST(TerminalTest, ControlCharactersAreReplaced) {
  EXPECT_EQ("a?[31mb?c", Printable("a\x1b[31mb\tc"));
  EXPECT_EQ("?", Printable("\u009b"));
  EXPECT_EQ("Größe", Printable("Größe"));
}

}  // namespace
}  // namespace qb
