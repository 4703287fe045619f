#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "support/Raises.h"

namespace qb {
namespace {

struct Row {
  std::string_view text;
  std::int32_t number;
};

TEST(Conversions, LenientNumber_TakesTheLongestLeadingNumber) {
  for (const Row& row : {
           Row{"", 0},
           Row{"12", 12},
           Row{"  12", 12},
           Row{"-7x", -7},
           Row{"+7", 7},
           Row{"12abc", 12},
           Row{"abc12", 0},
           Row{"1.5", 2},
           Row{"2.5", 2},
           Row{"3.5", 4},
           Row{"-2.5", -2},
           Row{"2.51", 3},
           Row{"1e3", 1000},
           Row{"1e", 1},
           Row{".5", 0},
           Row{".6", 1},
           Row{".", 0},
           Row{"-", 0},
           Row{"--1", 0},
           Row{"+-1", 0},
           Row{"0x10", 0},
           Row{"inf", 0},
           Row{"nan", 0},
           Row{"1,5", 1},
           Row{"00012", 12},
           Row{"2147483647", 2147483647},
           Row{"-2147483648", INT32_MIN},
           Row{"1e-999", 0},
       }) {
    EXPECT_EQ(LenientNumber(row.text), row.number) << row.text;
  }
}

TEST(Conversions, StrictNumber_TakesWholeNumbersOnly) {
  for (const Row& row :
       {Row{"12", 12}, Row{" 12 ", 12}, Row{"-7", -7}, Row{"2.5", 2}, Row{"1e2", 100}, Row{"+3", 3}}) {
    EXPECT_EQ(StrictNumber(row.text), row.number) << row.text;
  }
  for (const std::string_view text :
       {"", "  ", "abc", "12abc", "1 2", "0x10", "-", "1e", "\t1", "12\r", "nan", "inf"}) {
    EXPECT_EQ(Raised([text] { StrictNumber(text); }), failure::kTypeMismatch) << text;
  }
}

TEST(Conversions, NumbersThatDoNotFit_RaiseOverflow) {
  for (const std::string_view text :
       {"2147483648", "-2147483649", "1e10", "1e999", "99999999999999999999", "-1e999"}) {
    EXPECT_EQ(Raised([text] { LenientNumber(text); }), failure::kOverflow) << text;
    EXPECT_EQ(Raised([text] { StrictNumber(text); }), failure::kOverflow) << text;
  }
  EXPECT_EQ(LenientNumber("2147483647.4"), 2147483647);
  EXPECT_EQ(Raised([] { LenientNumber("2147483647.5"); }), failure::kOverflow);
}

TEST(Conversions, Overflow_DescriptionQuotesTheTextShortened) {
  try {
    LenientNumber(std::string(1000, '9'));
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Description(), "Overflow: '" + std::string(40, '9') + "'");
  }
}

TEST(Conversions, BooleanText_IsTrueOrFalse) {
  EXPECT_EQ(BooleanText(true), "True");
  EXPECT_EQ(BooleanText(false), "False");
}

}  // namespace
}  // namespace qb
