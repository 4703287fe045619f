#include <gtest/gtest.h>

#include <string>

#include "platform/ProfileLine.h"

namespace qb {
namespace {

using namespace std::string_literals;

TEST(ProfileLine, ValueThatReadsBack_ReadsBack) {
  for (const std::string& text :
       {""s, "plain"s, "a b"s, " blank"s, "blank "s, "\ttab\t"s, "\"quoted\""s, "'quoted'"s, "\""s, "\"\""s,
        "' \""s, "\"\"twice\"\""s, "\x1A"s, "a=b"s, "]"s, " "s}) {
    const std::string stored = ValueThatReadsBack(text);
    EXPECT_EQ(Unquoted(StoredValue(stored)), text) << stored;
  }
}

TEST(ProfileLine, ValueThatReadsBack_LeavesOrdinaryValuesAsTheyAre) {
  for (const std::string& text : {""s, "plain"s, "5\" disk"s, "\"a\" or 'b'"s, "\""s, "x\ty"s}) {
    EXPECT_EQ(ValueThatReadsBack(text), text);
  }
  EXPECT_EQ(ValueThatReadsBack("\"q\""), "\"\"q\"\"");
  EXPECT_EQ(ValueThatReadsBack(" x"), "\" x\"");
}

}  // namespace
}  // namespace qb
