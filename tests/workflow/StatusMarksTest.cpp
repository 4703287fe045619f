#include <gmock/gmock.h>

#include "support/WorkflowTest.h"
#include "workflow/DocumentCommands.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

/// One row of what the three marks ask, do and say.
struct Mark {
  const char* name;
  void (*command)();
  bool onlyAsksUnchanged;
  int style;
  const char* question;
  const char* localizationQuestion;
  const char* stateAfter;
  const char* progress;
  const char* localizationProgress;
  const char* trace;
  const char* error;
  const char* localizationError;
};

const Mark kMarks[] = {
    {"QbtMarkInProgress", QbtMarkInProgress, true, 292,
     "Are you sure to re-define the status of this object from 'unchanged' to 'in progress'?",
     "Are you sure to re-define the status of this object from 'unchanged' to 'in progress'?", "MODIFIED",
     "Setting document status to 'in progress': ", "Setting document status to 'in progress': ",
     "SET IN_PROGRESS: ", "An error has occurred while setting document status to 'in progress': #5: ",
     "An error has occurred while setting document status to 'in progress': #5: "},
    {"QbtMarkToBeTranslated", QbtMarkToBeTranslated, false, 4,
     "Are you sure to set the status of this document back to 'in translation'?",
     "Are you sure to set the status of this document back to 'to be localiced'?", "UNCHANGED",
     "Setting document status to 'in translation': ", "Setting document status to 'to be localized': ",
     "SET TO_BE_TRANSLATED: ",
     "An error has occurred while setting document status to 'in translation': #5: ",
     "An error has occurred while setting document status to 'to be localized': #5: "},
    {"QbtMarkCompleted", QbtMarkCompleted, true, 292,
     "Are you sure to re-define the status of this object from 'unchanged' to 'complete'?",
     "Are you sure to re-define the status of this object from 'unchanged' to 'complete'?", "COMPLETE",
     "Setting status to 'completed': ", "Setting status to 'completed': ", "SET COMPLETED: ",
     "An error has occurred while setting document status to 'completed': #5: ",
     "An error has occurred while setting document status to 'completed': #5: "},
};

class StatusMarksTest : public WorkflowTest, public ::testing::WithParamInterface<std::tuple<Mark, bool>> {
 protected:
  StatusMarksTest() : mark_(std::get<0>(GetParam())), localization_(std::get<1>(GetParam())) {
    Write(kPackage, SmallPackage(localization_));
    Start(kPackage);
    SelectNode("DOC1");
  }

  void SetState(std::string_view name) {
    gLoios->Item("DOC1")->state->InternalizeState(name);
    gLoios->Item("DOC1")->SavePLState();
  }
  std::string Progress() { return Entry(kPackage, "1", "PROGRESS"); }
  std::string Question() const { return localization_ ? mark_.localizationQuestion : mark_.question; }

  Mark mark_;
  bool localization_;
};

INSTANTIATE_TEST_SUITE_P(Table, StatusMarksTest,
                         ::testing::Combine(::testing::ValuesIn(kMarks), ::testing::Bool()),
                         [](const auto& info) {
                           return std::string(std::get<0>(info.param).name) +
                                  (std::get<1>(info.param) ? "_Localization" : "_Translation");
                         });

TEST_P(StatusMarksTest, Unchanged_AsksAndMarks) {
  Boxes().AnswerNext(box::kYes);
  mark_.command();
  ASSERT_EQ(Boxes().Shown().size(), 1U);
  EXPECT_EQ(Boxes().Shown()[0].text, Question());
  EXPECT_EQ(Boxes().Shown()[0].style, mark_.style);
  if (mark_.onlyAsksUnchanged) {
    EXPECT_EQ(Boxes().Shown()[0].title, "ORB Quillbank Translator");
    EXPECT_EQ(Boxes().Shown()[0].helpContext, 1000);
    EXPECT_EQ(Boxes().Shown()[0].helpFile, gHelpFile);
  }
  EXPECT_EQ(Progress(), mark_.stateAfter);
  EXPECT_THAT(Bytes(R"(\pkg\Protocol.txt)"),
              HasSubstr(std::string(localization_ ? mark_.localizationProgress : mark_.progress) + "DOC1"));
  EXPECT_THAT(TraceLines(),
              Contains("TranslateMod." + std::string(mark_.name) + ": " + mark_.trace + "DOC1"));
  EXPECT_EQ(std::stoul(Entry(kPackage, "GLOBAL", "FILESIZE")), Bytes(kPackage).size());
}

TEST_P(StatusMarksTest, AnswerNo_ChangesAndSaysNothing) {
  const std::string before = Bytes(kPackage);
  const std::string protocol = Bytes(R"(\pkg\Protocol.txt)");
  Boxes().AnswerNext(box::kNo);
  mark_.command();
  EXPECT_EQ(Bytes(kPackage), before);
  EXPECT_EQ(Bytes(R"(\pkg\Protocol.txt)"), protocol);
  EXPECT_THAT(TraceLines(), Not(Contains(HasSubstr(mark_.trace))));
}

TEST_P(StatusMarksTest, OtherAnswer_ProceedsOnlyWhereTheTestIsForNo) {
  SetState("UNCHANGED_C_MODIFIED_T");
  if (mark_.onlyAsksUnchanged) SetState("UNCHANGED");
  Boxes().AnswerNext(box::kCancel);
  mark_.command();
  EXPECT_EQ(Progress(), mark_.onlyAsksUnchanged ? mark_.stateAfter : "UNCHANGED_C_MODIFIED_T");
}

TEST_P(StatusMarksTest, Changed_AsksOnlyBeforeGoingBack) {
  SetState("MODIFIED_C_UNCHANGED_T");
  if (!mark_.onlyAsksUnchanged) Boxes().AnswerNext(box::kYes);
  mark_.command();
  EXPECT_EQ(Boxes().Shown().size(), mark_.onlyAsksUnchanged ? 0U : 1U);
  EXPECT_EQ(Progress(), mark_.stateAfter);
}

TEST_P(StatusMarksTest, Completed_FollowsTheStateMachine) {
  SetState("COMPLETE");
  if (!mark_.onlyAsksUnchanged) Boxes().AnswerNext(box::kYes);
  mark_.command();
  EXPECT_EQ(Progress(), mark_.stateAfter);
}

TEST_P(StatusMarksTest, OpenDocument_IsRefused) {
  SetState("OPENUNCHANGED_C_UNCHANGED_T");
  mark_.command();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Cannot change open status for object"));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
  EXPECT_EQ(Progress(), "OPENUNCHANGED_C_UNCHANGED_T");
}

TEST_P(StatusMarksTest, ReadOnlyOpenDocument_IsRefused) {
  SetState("READONLY_OPEN");
  mark_.command();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Cannot change progress status of a read-only object"));
}

TEST_P(StatusMarksTest, TransitionFails_SaysSo) {
  SetState("DUMMY");
  Boxes().AnswerNext(box::kYes);
  mark_.command();
  EXPECT_THAT(Boxes().Texts(), Contains("State change failed"));
  EXPECT_EQ(Progress(), "DUMMY");
}

TEST_P(StatusMarksTest, FileNode_ActsOnItsDocument) {
  SelectNode("DOC1_styles.css");
  Boxes().AnswerNext(box::kYes);
  mark_.command();
  EXPECT_EQ(Progress(), mark_.stateAfter);
}

TEST_P(StatusMarksTest, UnknownDocument_ReportsTheError) {
  TableTree& tree = Window().TransPackTree;
  tree.Select(&tree.AddEx(tree.Root(), TableTree::kChild, "GONE_x", "x", 0, 0, 0));
  mark_.command();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(localization_ ? mark_.localizationError : mark_.error)));
}

TEST_P(StatusMarksTest, TickDuringTheQuestion_DoesNoHarm) {
  Boxes().AnswerNext(box::kYes, [this] { Tick(); });
  mark_.command();
  EXPECT_EQ(Progress(), mark_.stateAfter);
}

}  // namespace
}  // namespace qb
