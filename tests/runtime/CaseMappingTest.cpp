#include <gtest/gtest.h>

#include "runtime/CaseMapping.h"

namespace qb {
namespace {

TEST(CaseMapping, LettersWithoutAnotherCase_MapToThemselves) {
  for (const char32_t character : {U'ß', U'1', U'[', U'表', U'ª', U'א', U'\uF781', U'😀', U'\0'}) {
    EXPECT_EQ(UpperCharacter(character), character);
    EXPECT_EQ(LowerCharacter(character), character);
  }
}

TEST(CaseMapping, NumeralsAndLettersInCircles_HaveTwoCases) {
  EXPECT_EQ(UpperCharacter(U'ⅳ'), U'Ⅳ');
  EXPECT_EQ(LowerCharacter(U'Ⅻ'), U'ⅻ');
  EXPECT_EQ(UpperCharacter(U'ⓐ'), U'Ⓐ');
  EXPECT_EQ(LowerCharacter(U'Ⓩ'), U'ⓩ');
}

TEST(CaseMapping, UpperCharacter_Twice_IsTheSame) {
  for (char32_t character = 0; character < 0x11000; ++character) {
    ASSERT_EQ(UpperCharacter(UpperCharacter(character)), UpperCharacter(character));
  }
}

}  // namespace
}  // namespace qb
