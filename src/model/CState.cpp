#include "model/CState.h"

#include <algorithm>
#include <array>

#include "foundation/CTrace.h"
#include "foundation/gRvdError.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "CState";
constexpr std::size_t kStates = 16;

constexpr std::int32_t kDummy = 0;
constexpr std::int32_t kUnchanged = 1;
constexpr std::int32_t kModified = 7;
constexpr std::int32_t kReadOnly = 14;
constexpr std::int32_t kReadOnlyOpen = 15;

constexpr std::array<std::string_view, kStates> kNames{
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

/// Words for the PHIO. Not the inverse of `SetStateFromDstCurr`: "INCOMPLETE" reads back as DUMMY.
constexpr std::array<std::string_view, kStates> kDstCurrWords{
    "DUMMY",      "UNCHANGED",  "INCOMPLETE", "INCOMPLETE", "INCOMPLETE", "MODIFIED", "MODIFIED", "MODIFIED",
    "INCOMPLETE", "INCOMPLETE", "INCOMPLETE", "INCOMPLETE", "INCOMPLETE", "MODIFIED", "READONLY", "READONLY",
};

/// The state after an event for each state before it.
using Transitions = std::array<std::int32_t, kStates>;
constexpr std::int32_t no = -1;  ///< not allowed; in a first step: stays and is no success

// clang-format off: the columns are the states
//                                    0   1   2   3   4   5   6   7   8   9  10  11  12  13  14  15
// Opening loses the mark of changed content in state 11, closing keeps it: stays so.
constexpr Transitions kOpen{1, 1, 1, 1, 1, 5, 6, 7, 5, 5, 6, 1, 7, 13, 14, 14};
constexpr Transitions kSave{1, no, 5, 6, 7, no, no, 7, 7, 5, 6, 7, 7, no, no, no};
constexpr Transitions kMarkUnchanged{no, 1, no, no, no, 1, 1, 1, no, no, no, no, no, 1, 14, no};
constexpr Transitions kCancel{no, no, 1, 1, 1, no, no, 7, 5, 5, 6, 6, 7, no, no, 14};
constexpr Transitions kBothEdit{no, 4, no, no, no, no, no, 12, no, no, no, no, no, 12, no, no};
// A MODIFIED document stays so while one of content and title is edited, and never shows as open.
constexpr Transitions kContentEdit{no, 3, no, no, no, 8, 10, 7, no, no, no, no, no, 12, no, no};
constexpr Transitions kTitleEdit{no, 2, no, no, no, 9, 11, 7, no, no, no, no, no, 12, no, no};
constexpr Transitions kComplete{no, 13, no, no, no, 13, 13, 13, no, no, no, no, no, 13, 14, no};
constexpr Transitions kChange{no, 7, no, no, no, 7, 7, 7, no, no, no, no, no, 7, 14, no};

// The first steps of the two events that go on with another one.
constexpr Transitions kBeforeOpen{no, no, 1, 1, 1, no, no, no, 5, 5, no, 6, 7, no, no, 14};
constexpr Transitions kBeforeSave{0, 7, 11, 10, 12, 12, 6, 7, 8, 9, 10, 11, 12, 7, no, no};
// clang-format on

bool IsKnown(std::int32_t state) {
  return state >= 0 && state < static_cast<std::int32_t>(kStates);
}

/// Moves the state by a table. True if the event is allowed.
bool Move(std::int32_t& state, const Transitions& transitions) {
  const std::int32_t next = IsKnown(state) ? transitions[static_cast<std::size_t>(state)] : no;
  if (next == no) return false;
  state = next;
  return true;
}

bool IsOneOf(std::int32_t state, std::initializer_list<std::int32_t> states) {
  return std::find(states.begin(), states.end(), state) != states.end();
}

std::string_view NameOf(std::int32_t state) {
  return kNames[static_cast<std::size_t>(IsKnown(state) ? state : kDummy)];
}

void TraceState(std::string_view procedure, std::string_view direction, std::int32_t state) {
  Trace(3, kModule, procedure, "myState {}: '{}' '{}'", direction, state, NameOf(state));
}

/// The entry and exit lines of a procedure around `body`.
template <class Body>
void RunTraced(std::string_view procedure, const std::int32_t& state, Body&& body) {
  const TracedProcedure traced(kModule, procedure);
  TraceState(procedure, "->", state);
  body();
  TraceState(procedure, "<-", state);
}

/// Runs a transition under its error handler. `body` returns whether the transition took effect, which the
/// trace tells, and sets the result.
template <class Body>
bool RunTransition(std::string_view procedure, const std::int32_t& state, Body&& body) {
  bool result = false;
  const bool done = Attempt([&] {
    RunTraced(procedure, state, [&] {
      if (body(result)) Trace(2, kModule, procedure, "{}: goto {}", procedure, state);
    });
  });
  if (done) return result;
  TraceState(procedure, "<-", state);
  TracePendingError(kModule, procedure);
  gRvdError(kModule, procedure);
  return false;
}

/// A transition that is one look-up.
bool LookUp(std::string_view procedure, std::int32_t& state, const Transitions& transitions) {
  return RunTransition(procedure, state, [&](bool& result) { return result = Move(state, transitions); });
}

}  // namespace

void CState::InternalizeState(std::string_view strNewState) {
  RunTraced("InternalizeState", myState, [&] {
    const auto found = std::find(kNames.begin(), kNames.end(), strNewState);
    myState = found == kNames.end() ? kDummy : static_cast<std::int32_t>(found - kNames.begin());
  });
}

void CState::SetStateFromDstCurr(std::string_view strNewState) {
  RunTraced("SetStateFromDstCurr", myState, [&] {
    myState = kDummy;
    if (strNewState == "UNCHANGED") myState = kUnchanged;
    if (strNewState == "MODIFIED") myState = kModified;
    if (strNewState == "READONLY") myState = kReadOnly;
  });
}

std::string CState::GetDstCurrState() const {
  std::string_view word = "DUMMY";
  RunTraced("GetDstCurrState", myState, [&] {
    if (IsKnown(myState)) word = kDstCurrWords[static_cast<std::size_t>(myState)];
  });
  return std::string(word);
}

std::string CState::ExternalizeState() const {
  return std::string(NameOf(myState));
}

bool CState::OpenTransition() {
  return RunTransition("OpenTransition", myState, [&](bool& result) {
    Move(myState, kOpen);
    return result = true;
  });
}

bool CState::CloseTransition() {
  return RunTransition("CloseTransition", myState, [&](bool& result) {
    result = Move(myState, kBeforeOpen);
    return OpenTransition();  // moves state 10 too, although the result is false
  });
}

bool CState::SaveTransition() {
  return LookUp("SaveTransition", myState, kSave);
}

bool CState::BackInProgressTransition() {
  return RunTransition("BackInProgressTransition", myState, [&](bool& result) {
    result = Move(myState, kBeforeSave);
    return SaveTransition();
  });
}

bool CState::UnchangedTransition() {
  return LookUp("UnchangedTransition", myState, kMarkUnchanged);
}

bool CState::CancelTransition() {
  return LookUp("CancelTransition", myState, kCancel);
}

bool CState::BothEditTransition() {
  return LookUp("BothEditTransition", myState, kBothEdit);
}

bool CState::ContentEditTransition() {
  return LookUp("ContentEditTransition", myState, kContentEdit);
}

bool CState::TitleEditTransition() {
  return LookUp("TitleEditTransition", myState, kTitleEdit);
}

bool CState::CompleteTransition() {
  return LookUp("CompleteTransition", myState, kComplete);
}

bool CState::ChangedTransition() {
  return LookUp("ChangedTransition", myState, kChange);
}

bool CState::isReadOnly() const {
  return myState ==
         kReadOnlyOpen;  // READONLY itself is caught by `isCompleted` and the transitions: stays so
}

bool CState::IsOpen() const {
  return IsOneOf(myState, {2, 3, 4, 8, 10, 11, 12, 15});  // not 9, although its title is open: stays so
}

bool CState::isChanged() const {
  return IsOneOf(myState, {5, 6, 7, 8, 9, 10, 11, 12, 13});
}

bool CState::isCompleted() const {
  return IsOneOf(myState, {13, 14});  // a read-only document shows as completed: stays so
}

bool CState::isUnchanged() const {
  return IsOneOf(myState, {0, 1, 2, 3, 4, 14, 15});
}

}  // namespace qb
