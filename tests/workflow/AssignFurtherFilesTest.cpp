#include "workflow/AssignTranslatedFileTest.h"
#include "workflow/DocumentCommands.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class AssignFurtherFilesTest : public AssignTranslatedFileTest {};

TEST_F(AssignFurtherFilesTest, FurtherFileThenNo_IsCountedAsTheSecond) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  Choose(R"(\done\extra.gif)");
  Boxes().AnswerNext(box::kYes);
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(kFirstQuestion,
                          "You have successfully checked in file '\\done\\extra.gif' as file #2.\r\nDo any "
                          "further files belong to the translation?",
                          "Operation completed successfully"));
  EXPECT_THAT(BoxStyles(), ElementsAre(35, 35, 0));
  EXPECT_THAT(Listed("1"), ElementsAre("styles.css:PRIM", "extra.gif"));
  EXPECT_EQ(Bytes(R"(\pkg\dst\extra.gif)"), R"(\done\extra.gif)");
  EXPECT_TRUE(TimersAreOn());
}

TEST_F(AssignFurtherFilesTest, ThreeFurtherFiles_AreAllCounted) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  for (const char* name : {R"(\done\a.gif)", R"(\done\b.gif)", R"(\done\c.gif)"}) {
    Choose(name);
    Boxes().AnswerNext(box::kYes);
  }
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts()[3], HasSubstr(R"('\done\c.gif' as file #4.)"));
  EXPECT_THAT(Listed("1"), ElementsAre("styles.css:PRIM", "a.gif", "b.gif", "c.gif"));
}

TEST_F(AssignFurtherFilesTest, FurtherFilesCancelledInTheQuestion_SaysSo) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  Boxes().AnswerNext(box::kCancel);
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kFirstQuestion, "Insertion of further files cancelled."));
  EXPECT_TRUE(TimersAreOn());
}

TEST_F(AssignFurtherFilesTest, FurtherFilesCancelledInTheChooser_EndsAtOnceWithTheTimersOff) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  Dialogs().CancelNext();
  Boxes().AnswerNext(box::kYes);
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kFirstQuestion));
  EXPECT_THAT(DialogCalls(), ElementsAre("show", "hide"));
  EXPECT_FALSE(TimersAreOn());
  EXPECT_EQ(Value("1", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
  QbtTranslate();
  EXPECT_TRUE(TimersAreOn()) << "the next command that hands a document over starts them";
}

TEST_F(AssignFurtherFilesTest, FurtherFileThatFails_IsReportedAsAFailureOfItsOwn) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  Dialogs().ChooseNext(R"(\pkg\dst\styles.css)");
  Boxes().AnswerNext(box::kYes);
  QbtAssignTranslatedFile();
  EXPECT_THAT(
      Boxes().Texts(),
      ElementsAre(kFirstQuestion,
                  HasSubstr("A file with the same name is already part of the translation package"),
                  HasSubstr("An error has occurred while checkin in file as translation: #-42: Insert "
                            "component failt")));
  EXPECT_TRUE(TimersAreOn());
}

}  // namespace
}  // namespace qb
