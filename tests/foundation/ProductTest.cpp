#include <gtest/gtest.h>

#include "foundation/Product.h"
#include "support/TestPlatform.h"

namespace qb {
namespace {

class ProductTest : public PlatformTest {};

TEST_F(ProductTest, ProductVersion_IsThatOfTheBuild) {
  EXPECT_EQ(ProductVersion(), "7.1.3");
}

TEST_F(ProductTest, MsgBox_NoTitle_LeavesItToTheProgram) {
  EXPECT_EQ(MsgBox("text"), box::kOk);
  EXPECT_EQ(Boxes().Shown().at(0).text, "text");
  EXPECT_EQ(Boxes().Shown().at(0).style, box::kOkOnly);
  EXPECT_EQ(Boxes().Shown().at(0).title, std::nullopt);
}

TEST_F(ProductTest, MsgBox_QuestionWithTitle_GivesTheAnswer) {
  Boxes().AnswerNext(box::kYes);
  EXPECT_EQ(MsgBox("text", box::kYesNo | box::kQuestion, "title"), box::kYes);
  EXPECT_EQ(Boxes().Shown().at(0).style, 36);
  EXPECT_EQ(Boxes().Shown().at(0).title, "title");
}

TEST_F(ProductTest, ScriptedBoxes_UnscriptedQuestion_IsNoAndRecorded) {
  EXPECT_EQ(MsgBox("really?", box::kYesNo), box::kNo);
  ASSERT_EQ(Boxes().UnexpectedQuestions().size(), 1U);
  EXPECT_EQ(Boxes().UnexpectedQuestions()[0].text, "really?");
  Boxes().Forget();
}

}  // namespace
}  // namespace qb
