#include <gmock/gmock.h>

#include "editors/CEditorSlots.h"
#include "support/WorkflowTest.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

class CEditorSlotsTest : public WorkflowTest {
 protected:
  CEditorSlotsTest() {
    Write(kPackage, SmallPackage());
    for (const char* path :
         {R"(\pkg\dst\styles.css)", R"(\pkg\src\styles.css)", R"(\pkg\dst\menu.js)", R"(\pkg\src\menu.js)"}) {
      Write(path, "x");
    }
    TheClock().SetLocalNow({2200, 1, 1, 0, 0, 0});
    Start(kPackage);
  }
  CEditorSlots& Slots() { return *gEditorSlots; }
};

TEST_F(CEditorSlotsTest, OpenSlot_FourthDocument_SaysSoAndLeavesTheCallersTransition) {
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(Slots().OpenSlot("DOC1"));
  gLoios->Item("DOC2")->ContentEditTransition();
  EXPECT_FALSE(Slots().OpenSlot("DOC2"));
  EXPECT_THAT(Boxes().Texts(), ElementsAre("no slot available!"));
  EXPECT_EQ(TheShell().requests.size(), 3U);
  EXPECT_EQ(gLoios->Item("DOC2")->state->ExternalizeState(), "OPENUNCHANGED_C_UNCHANGED_T");
}

TEST_F(CEditorSlotsTest, OpenSlot_FirstSlotFreed_TakesItAgain) {
  Slots().OpenSlot("DOC1");
  Slots().OpenSlot("DOC2");
  TheShell().EndProcess(1);
  EXPECT_FALSE(Slots().CheckSlots());
  Slots().OpenSlot("DOC1");
  EXPECT_TRUE(Slots().OpenSlot("DOC1")) << "two slots were free";
  EXPECT_FALSE(Slots().OpenSlot("DOC1"));
}

TEST_F(CEditorSlotsTest, OpenSlot_EditorDoesNotOpen_LeavesTheSlotFree) {
  TheShell().verbs.clear();
  for (int i = 0; i < 4; ++i) EXPECT_FALSE(Slots().OpenSlot("DOC1"));
  EXPECT_THAT(Boxes().Texts(), ::testing::Not(Contains("no slot available!")));
}

TEST_F(CEditorSlotsTest, CheckSlots_AllEmpty_UpdatesNothing) {
  ThePlatform().profiles->WritePrivateProfileString("1", "PROGRESS", "MODIFIED", kPackage);
  EXPECT_TRUE(Slots().CheckSlots());
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "MODIFIED");
}

TEST_F(CEditorSlotsTest, CheckSlots_EndedSession_UpdatesEveryDocument) {
  Slots().OpenSlot("DOC1");
  ThePlatform().profiles->WritePrivateProfileString("2", "PROGRESS", "MODIFIED", kPackage);
  TheShell().EndAllProcesses();
  EXPECT_TRUE(Slots().CheckSlots());
  EXPECT_EQ(Entry(kPackage, "2", "PROGRESS"), "UNCHANGED");
}

TEST_F(CEditorSlotsTest, CheckSlots_VisioWindowsOut_KeepsTheEndedSession) {
  for (int i = 0; i < 3; ++i) Slots().OpenSlot("DOC1");
  TheShell().EndAllProcesses();
  gVisioWindows = 1;
  EXPECT_TRUE(Slots().CheckSlots());
  gVisioWindows = 0;
  EXPECT_TRUE(Slots().CheckSlots());
  EXPECT_TRUE(Slots().OpenSlot("DOC1"));
}

TEST_F(CEditorSlotsTest, CloseAllSlots_EditorThatDoesNotClose_KeepsItsSlot) {
  Slots().OpenSlot("DOC1");
  EXPECT_FALSE(Slots().CloseAllSlots(false));
  EXPECT_FALSE(Slots().CheckSlots());
}

TEST_F(CEditorSlotsTest, CloseAllSlots_ByForce_EmptiesAllThoughItFailed) {
  Slots().OpenSlot("DOC1");
  EXPECT_FALSE(Slots().CloseAllSlots(true));
  EXPECT_TRUE(Slots().CheckSlots());
}

TEST_F(CEditorSlotsTest, CloseSlot_FirstSlotEmpty_RaisesWhateverTheKey) {
  EXPECT_THROW(Slots().CloseSlot("DOC1"), RuntimeError);
  EXPECT_THROW(Slots().CloseSlot("none"), RuntimeError);
}

TEST_F(CEditorSlotsTest, CloseSlot_DocumentInTheFirstSlot_ClosesIt) {
  Slots().OpenSlot("DOC1");
  TheShell().EndAllProcesses();
  EXPECT_TRUE(Slots().CloseSlot("DOC1"));
  EXPECT_THROW(Slots().CloseSlot("DOC1"), RuntimeError);
}

TEST_F(CEditorSlotsTest, CloseSlot_NoSlotMatches_IsFalse) {
  for (int i = 0; i < 3; ++i) Slots().OpenSlot("DOC1");
  EXPECT_FALSE(Slots().CloseSlot("DOC2"));
}

TEST_F(CEditorSlotsTest, End_ClosesAllSlotsByForce) {
  auto slots = std::make_shared<CEditorSlots>();
  slots->OpenSlot("DOC1");
  slots.reset();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Please close editor"));
  EXPECT_THAT(TraceLines(), Contains("CEditorSlots.Class_Terminate: <-"));
}

TEST_F(CEditorSlotsTest, End_DocumentGone_DoesNotTearTheProgramDown) {
  auto slots = std::make_shared<CEditorSlots>();
  slots->OpenSlot("DOC1");
  gLoios->Clear();
  slots.reset();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(CEditorSlotsTest, CheckSlots_InsideTheBoxOfAClosingEditor_KeepsTheSessionAlive) {
  Slots().OpenSlot("DOC1");
  Boxes().WhileNextNotice([this] {
    TheShell().EndAllProcesses();
    Tick();
  });
  Slots().CloseAllSlots(true);
  EXPECT_TRUE(Slots().CheckSlots());
  EXPECT_EQ(gLoios->Item("DOC1")->state->ExternalizeState(), "UNCHANGED");
}

}  // namespace
}  // namespace qb
