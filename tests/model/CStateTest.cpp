#include <gmock/gmock.h>

#include <array>

#include "foundation/CTrace.h"
#include "model/CState.h"
#include "support/ModelTest.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr int kStates = 16;

constexpr std::array<const char*, kStates> kNames{
    "DUMMY",
    "UNCHANGED",
    "UNCHANGED_C_OPENUNCHANGED_T",
    "OPENUNCHANGED_C_UNCHANGED_T",
    "OPENUNCHANGED_C_OPENUNCHANGED_T",
    "UNCHANGED_C_MODIFIED_T",
    "MODIFIED_C_UNCHANGED_T",
    "MODIFIED",
    "OPENUNCHANGED_C_MODIFIED_T",
    "UNCHANGED_C_OPENMODIFIED_T",
    "OPENMODIFIED_C_UNCHANGED_T",
    "MODIFIED_C_OPENUNCHANGED_T",
    "OPENMODIFIED_C_OPENMODIFIED_T",
    "COMPLETE",
    "READONLY",
    "READONLY_OPEN",
};

CState InState(int number) {
  CState state;
  state.myState = number;
  return state;
}

/// A cell of the table of transitions: the state afterwards, and whether the event is allowed.
struct Cell {
  int next;
  bool allowed = true;
};

struct Event {
  const char* name;
  bool (CState::*transition)();
};

constexpr std::array<Event, 11> kEvents{{
    {"OpenTransition", &CState::OpenTransition},
    {"CloseTransition", &CState::CloseTransition},
    {"SaveTransition", &CState::SaveTransition},
    {"BackInProgressTransition", &CState::BackInProgressTransition},
    {"UnchangedTransition", &CState::UnchangedTransition},
    {"CancelTransition", &CState::CancelTransition},
    {"BothEditTransition", &CState::BothEditTransition},
    {"ContentEditTransition", &CState::ContentEditTransition},
    {"TitleEditTransition", &CState::TitleEditTransition},
    {"CompleteTransition", &CState::CompleteTransition},
    {"ChangedTransition", &CState::ChangedTransition},
}};

constexpr Cell No(int next) {
  return {next, false};
}

// clang-format off: the columns are the events, in the order above
constexpr std::array<std::array<Cell, 11>, kStates> kTransitions{{
    {{{1}, No(1), {1}, {1}, No(0), No(0), No(0), No(0), No(0), No(0), No(0)}},
    {{{1}, No(1), No(1), {7}, {1}, No(1), {4}, {3}, {2}, {13}, {7}}},
    {{{1}, {1}, {5}, {7}, No(2), {1}, No(2), No(2), No(2), No(2), No(2)}},
    {{{1}, {1}, {6}, {6}, No(3), {1}, No(3), No(3), No(3), No(3), No(3)}},
    {{{1}, {1}, {7}, {7}, No(4), {1}, No(4), No(4), No(4), No(4), No(4)}},
    {{{5}, No(5), No(5), {7}, {1}, No(5), No(5), {8}, {9}, {13}, {7}}},
    {{{6}, No(6), No(6), {6}, {1}, No(6), No(6), {10}, {11}, {13}, {7}}},
    {{{7}, No(7), {7}, {7}, {1}, {7}, {12}, {7}, {7}, {13}, {7}}},
    {{{5}, {5}, {7}, {7}, No(8), {5}, No(8), No(8), No(8), No(8), No(8)}},
    {{{5}, {5}, {5}, {5}, No(9), {5}, No(9), No(9), No(9), No(9), No(9)}},
    {{{6}, No(6), {6}, {6}, No(10), {6}, No(10), No(10), No(10), No(10), No(10)}},
    {{{1}, {6}, {7}, {7}, No(11), {6}, No(11), No(11), No(11), No(11), No(11)}},
    {{{7}, {7}, {7}, {7}, No(12), {7}, No(12), No(12), No(12), No(12), No(12)}},
    {{{13}, No(13), No(13), {7}, {1}, No(13), {12}, {12}, {12}, {13}, {7}}},
    {{{14}, No(14), No(14), No(14), {14}, No(14), No(14), No(14), No(14), {14}, {14}}},
    {{{14}, {14}, No(15), No(15), No(15), {14}, No(15), No(15), No(15), No(15), No(15)}},
}};
// clang-format on

class CStateTransitionTest : public ModelTest, public ::testing::WithParamInterface<int> {};

TEST_P(CStateTransitionTest, EveryEvent_MovesAndAnswersAsTheTableSays) {
  const int from = GetParam();
  for (std::size_t event = 0; event < kEvents.size(); ++event) {
    CState state = InState(from);
    const bool allowed = (state.*kEvents[event].transition)();
    const Cell& expected = kTransitions[static_cast<std::size_t>(from)][event];
    EXPECT_EQ(state.myState, expected.next) << kEvents[event].name;
    EXPECT_EQ(allowed, expected.allowed) << kEvents[event].name;
  }
}

INSTANTIATE_TEST_SUITE_P(EveryState, CStateTransitionTest, ::testing::Range(0, kStates),
                         [](const auto& info) { return std::string(kNames[info.param]); });

class CStateTest : public ModelTest {};

TEST_F(CStateTest, NewObject_IsDummy) {
  EXPECT_EQ(CState().myState, 0);
}

TEST_F(CStateTest, Names_AreReadAndWritten) {
  for (int number = 0; number < kStates; ++number) {
    CState state = InState(number == 0 ? 7 : 0);
    state.InternalizeState(kNames[static_cast<std::size_t>(number)]);
    EXPECT_EQ(state.myState, number);
    EXPECT_EQ(state.ExternalizeState(), kNames[static_cast<std::size_t>(number)]);
  }
}

TEST_F(CStateTest, InternalizeState_NoName_GivesDummy) {
  for (const char* name : {"", "unchanged", "UNCHANGED ", "INCOMPLETE", "nonsense"}) {
    CState state = InState(7);
    state.InternalizeState(name);
    EXPECT_EQ(state.myState, 0) << name;
    EXPECT_EQ(state.ExternalizeState(), "DUMMY");
  }
}

TEST_F(CStateTest, NumberOutsideTheTable_IsCalledDummyAndAnswersNothing) {
  for (const int number : {-1, 16, 99}) {
    CState state = InState(number);
    EXPECT_EQ(state.ExternalizeState(), "DUMMY");
    EXPECT_EQ(state.GetDstCurrState(), "DUMMY");
    EXPECT_FALSE(state.SaveTransition());
    EXPECT_TRUE(state.OpenTransition());
    EXPECT_EQ(state.myState, number);
    EXPECT_FALSE(state.isUnchanged() || state.isChanged() || state.isCompleted() || state.IsOpen() ||
                 state.isReadOnly());
  }
}

TEST_F(CStateTest, SetStateFromDstCurr_FollowsTheTable) {
  struct {
    const char* word;
    int number;
  } const rows[] = {{"INCOMPLETE", 0}, {"DUMMY", 0}, {"UNCHANGED", 1}, {"MODIFIED", 7},
                    {"READONLY", 14},  {"", 0},      {"modified", 0},  {"COMPLETE", 0}};
  for (const auto& row : rows) {
    CState state = InState(5);
    state.SetStateFromDstCurr(row.word);
    EXPECT_EQ(state.myState, row.number) << row.word;
  }
}

TEST_F(CStateTest, GetDstCurrState_FollowsTheTable) {
  const std::array<const char*, kStates> words{"DUMMY",      "UNCHANGED",  "INCOMPLETE", "INCOMPLETE",
                                               "INCOMPLETE", "MODIFIED",   "MODIFIED",   "MODIFIED",
                                               "INCOMPLETE", "INCOMPLETE", "INCOMPLETE", "INCOMPLETE",
                                               "INCOMPLETE", "MODIFIED",   "READONLY",   "READONLY"};
  for (int number = 0; number < kStates; ++number) {
    EXPECT_EQ(InState(number).GetDstCurrState(), words[static_cast<std::size_t>(number)]) << number;
  }
}

TEST_F(CStateTest, Predicates_FollowTheTable) {
  struct {
    int number;
    bool readOnly, open, changed, completed, unchanged;
  } const rows[] = {
      {0, false, false, false, false, true}, {1, false, false, false, false, true},
      {2, false, true, false, false, true},  {3, false, true, false, false, true},
      {4, false, true, false, false, true},  {5, false, false, true, false, false},
      {6, false, false, true, false, false}, {7, false, false, true, false, false},
      {8, false, true, true, false, false},  {9, false, false, true, false, false},
      {10, false, true, true, false, false}, {11, false, true, true, false, false},
      {12, false, true, true, false, false}, {13, false, false, true, true, false},
      {14, false, false, false, true, true}, {15, true, true, false, false, true},
  };
  for (const auto& row : rows) {
    const CState state = InState(row.number);
    EXPECT_EQ(state.isReadOnly(), row.readOnly) << row.number;
    EXPECT_EQ(state.IsOpen(), row.open) << row.number;
    EXPECT_EQ(state.isChanged(), row.changed) << row.number;
    EXPECT_EQ(state.isCompleted(), row.completed) << row.number;
    EXPECT_EQ(state.isUnchanged(), row.unchanged) << row.number;
  }
}

TEST_F(CStateTest, ContentRoad_SaveThenClose_StaysChangedAndCloseIsNoSuccess) {
  CState state = InState(1);
  EXPECT_TRUE(state.ContentEditTransition());
  EXPECT_EQ(state.myState, 3);
  EXPECT_TRUE(state.SaveTransition());
  EXPECT_EQ(state.myState, 6);
  EXPECT_FALSE(state.CloseTransition());
  EXPECT_EQ(state.myState, 6);
}

TEST_F(CStateTest, TitleRoad_Cancelled_IsUnchangedAgain) {
  CState state = InState(1);
  EXPECT_TRUE(state.TitleEditTransition());
  EXPECT_EQ(state.myState, 2);
  EXPECT_TRUE(state.CancelTransition());
  EXPECT_EQ(state.myState, 1);
}

TEST_F(CStateTest, Modified_ContentEdit_SucceedsAndNeverShowsAsOpen) {
  CState state = InState(7);
  EXPECT_TRUE(state.ContentEditTransition());
  EXPECT_FALSE(state.IsOpen());
}

TEST_F(CStateTest, Complete_ContentEdit_OpensBothAxes) {
  CState state = InState(13);
  EXPECT_TRUE(state.ContentEditTransition());
  EXPECT_EQ(state.myState, 12);
}

TEST_F(CStateTest, ReadOnly_Changed_SucceedsAndStays) {
  CState state = InState(14);
  EXPECT_TRUE(state.ChangedTransition());
  EXPECT_EQ(state.myState, 14);
}

TEST_F(CStateTest, ReadOnlyOpen_OpenCloseAndCancel_GiveReadOnly) {
  for (const auto transition :
       {&CState::OpenTransition, &CState::CloseTransition, &CState::CancelTransition}) {
    CState state = InState(15);
    EXPECT_TRUE((state.*transition)());
    EXPECT_EQ(state.myState, 14);
  }
}

TEST_F(CStateTest, OpenState_Unchanged_IsRefused) {
  for (const int number : {2, 3, 4, 8, 9, 10, 11, 12, 15}) {
    CState state = InState(number);
    EXPECT_FALSE(state.UnchangedTransition());
    EXPECT_EQ(state.myState, number);
  }
}

TEST_F(CStateTest, State10_Close_BecomesSixAndIsNoSuccess) {
  CState state = InState(10);
  EXPECT_FALSE(state.CloseTransition());
  EXPECT_EQ(state.myState, 6);
}

TEST_F(CStateTest, Trace_LookUp_TellsEntryGotoAndExit) {
  CState state = InState(1);
  StartTrace();
  state.ContentEditTransition();
  EXPECT_THAT(TraceLines(),
              ElementsAre("CState.ContentEditTransition: ->",
                          "CState.ContentEditTransition: myState ->: '1' 'UNCHANGED'",
                          "CState.ContentEditTransition: ContentEditTransition: goto 3",
                          "CState.ContentEditTransition: myState <-: '3' 'OPENUNCHANGED_C_UNCHANGED_T'",
                          "CState.ContentEditTransition: <-"));
}

TEST_F(CStateTest, Trace_RefusedEvent_HasNoGoto) {
  CState state = InState(3);
  StartTrace();
  state.CompleteTransition();
  EXPECT_THAT(TraceLines(),
              ElementsAre("CState.CompleteTransition: ->",
                          "CState.CompleteTransition: myState ->: '3' 'OPENUNCHANGED_C_UNCHANGED_T'",
                          "CState.CompleteTransition: myState <-: '3' 'OPENUNCHANGED_C_UNCHANGED_T'",
                          "CState.CompleteTransition: <-"));
}

TEST_F(CStateTest, Trace_Close_TellsTheInnerOpenAndItsOwnGotoThoughItFails) {
  CState state = InState(10);
  StartTrace();
  state.CloseTransition();
  EXPECT_THAT(TraceLines(),
              ElementsAre("CState.CloseTransition: ->",
                          "CState.CloseTransition: myState ->: '10' 'OPENMODIFIED_C_UNCHANGED_T'",
                          "CState.OpenTransition: ->",
                          "CState.OpenTransition: myState ->: '10' 'OPENMODIFIED_C_UNCHANGED_T'",
                          "CState.OpenTransition: OpenTransition: goto 6",
                          "CState.OpenTransition: myState <-: '6' 'MODIFIED_C_UNCHANGED_T'",
                          "CState.OpenTransition: <-", "CState.CloseTransition: CloseTransition: goto 6",
                          "CState.CloseTransition: myState <-: '6' 'MODIFIED_C_UNCHANGED_T'",
                          "CState.CloseTransition: <-"));
}

TEST_F(CStateTest, Trace_BackInProgress_GotoFollowsTheInnerSave) {
  CState six = InState(6);  // saving state 6 is refused, so there is no goto although the event succeeds
  StartTrace();
  EXPECT_TRUE(six.BackInProgressTransition());
  for (const std::string& line : TraceLines()) EXPECT_THAT(line, ::testing::Not(HasSubstr("goto")));
  CState one = InState(1);
  StartTrace();
  EXPECT_TRUE(one.BackInProgressTransition());
  EXPECT_THAT(TraceLines(),
              ::testing::Contains("CState.BackInProgressTransition: BackInProgressTransition: goto 7"));
}

TEST_F(CStateTest, Trace_Mappings_TellEntryAndExitToo) {
  CState state;
  StartTrace();
  state.InternalizeState("MODIFIED");
  state.SetStateFromDstCurr("READONLY");
  state.GetDstCurrState();
  EXPECT_THAT(
      TraceLines(),
      ElementsAre("CState.InternalizeState: ->", "CState.InternalizeState: myState ->: '0' 'DUMMY'",
                  "CState.InternalizeState: myState <-: '7' 'MODIFIED'", "CState.InternalizeState: <-",
                  "CState.SetStateFromDstCurr: ->", "CState.SetStateFromDstCurr: myState ->: '7' 'MODIFIED'",
                  "CState.SetStateFromDstCurr: myState <-: '14' 'READONLY'", "CState.SetStateFromDstCurr: <-",
                  "CState.GetDstCurrState: ->", "CState.GetDstCurrState: myState ->: '14' 'READONLY'",
                  "CState.GetDstCurrState: myState <-: '14' 'READONLY'", "CState.GetDstCurrState: <-"));
}

/// A clock that fails once, and with it the line being traced.
class FailingOnce : public FakeClock {
 public:
  DateTime LocalNow() override {
    if (!failed_) {
      failed_ = true;
      throw RuntimeError(failure::kDiskFull);
    }
    return FakeClock::LocalNow();
  }

 private:
  bool failed_ = false;
};

TEST_F(CStateTest, FailureInATransition_IsTracedAndReported) {
  CState state = InState(1);
  StartTrace();
  ThePlatform().clock = std::make_unique<FailingOnce>();
  EXPECT_FALSE(state.ContentEditTransition());
  EXPECT_THAT(TraceLines(),
              ::testing::IsSupersetOf({"CState.ContentEditTransition: myState <-: '1' 'UNCHANGED'",
                                       "CState.ContentEditTransition: err: '61' 'Disk full'"}));
  EXPECT_THAT(Boxes().Texts(), ElementsAre("CState::ContentEditTransition() #61:Disk full"));
}

}  // namespace
}  // namespace qb
