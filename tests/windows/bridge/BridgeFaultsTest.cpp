// A session over a library that fails, gives nothing or gives garbage: the program lives, says what it has to
// say, and the document ends in the state that belongs there.

#include <gmock/gmock.h>

#include <algorithm>

#include "support/BridgeTest.h"
#include "windows/bridge/StandInClass.h"
#include "windows/bridge/StandInObject.h"

namespace qb {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kFailed = "Source document or translation document does not exist";

enum class Fault { kRaises, kGivesNothing };

class BridgeFaultsTest : public BridgeTest {
 protected:
  /// A new session of the document, open in a new office.
  void OpenAnew() {
    Boxes().Forget();
    office_ = ScriptedBridge::Install();
    session_ = std::make_shared<CEditor>();
    gLoios->Item("DOC1")->state->InternalizeState("UNCHANGED");
    OpenSession();
  }

  /// The calls that `play` makes, each once.
  template <class Play>
  std::vector<std::string> CallsOf(Play&& play) {
    OpenAnew();
    play();
    std::vector<std::string> calls;
    for (const std::string& call : Office().calls) {
      if (std::find(calls.begin(), calls.end(), call) == calls.end()) calls.push_back(call);
    }
    EXPECT_THAT(calls, Not(IsEmpty()));
    return calls;
  }

  void Meet(Fault fault, const std::string& call) {
    if (fault == Fault::kRaises) {
      Office().RaiseAt(call, 4711);
    } else {
      Office().GiveNothingAt(call);
    }
  }

  bool TimersRun() { return Window().tmrTimer1.Enabled && Window().tmrTimer2.Enabled; }
};

TEST_F(BridgeFaultsTest, EveryCallOfASave_Fails_IsToldUnlessItIsTheTitlesAndLeavesTheDocumentOut) {
  StartWithWord();
  const auto save = [this] { Attempt([this] { Office().UserSaves(translation_); }); };
  for (const std::string& call : CallsOf(save)) {
    for (const Fault fault : {Fault::kRaises, Fault::kGivesNothing}) {
      SCOPED_TRACE(call + (fault == Fault::kRaises ? " raises" : " gives nothing"));
      OpenAnew();
      Meet(fault, call);
      save();
      const bool ofTheTitle =
          call.find("CustomProperties") != std::string::npos || call.find("Title.Value") != std::string::npos;
      const bool givesNoObject = call.ends_with("Name") || call.ends_with("elements");
      if (ofTheTitle || (givesNoObject && fault == Fault::kGivesNothing)) {
        EXPECT_EQ(State(), "MODIFIED_C_UNCHANGED_T");
        EXPECT_EQ(Title(), "Styles");
        EXPECT_THAT(Boxes().Texts(), IsEmpty());
      } else {
        EXPECT_EQ(State(), "OPENUNCHANGED_C_UNCHANGED_T");
        EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(fault == Fault::kRaises ? "4711" : "91")));
      }
      EXPECT_TRUE(session_->IsOpen());
      EXPECT_TRUE(TimersRun());
      Office().UserCloses(translation_);
      EXPECT_FALSE(session_->IsOpen());
      EXPECT_THAT(State(), AnyOf("MODIFIED_C_UNCHANGED_T", "UNCHANGED"));
    }
  }
}

TEST_F(BridgeFaultsTest, EveryCallOfAClose_Fails_EndsTheSessionAndTheDocumentWithItsWindow) {
  StartWithHtml();
  const auto close = [this] { session_->CloseEditor(); };
  for (const std::string& call : CallsOf(close)) {
    for (const Fault fault : {Fault::kRaises, Fault::kGivesNothing}) {
      SCOPED_TRACE(call + (fault == Fault::kRaises ? " raises" : " gives nothing"));
      OpenAnew();
      Meet(fault, call);
      close();
      EXPECT_FALSE(session_->IsOpen());
      // What its group did not close is out until its user closes it.
      if (Shows(translation_)) Attempt([this] { Office().UserCloses(translation_); });
      Err.Clear();
      EXPECT_EQ(State(), "UNCHANGED");
      EXPECT_TRUE(TimersRun());
      EXPECT_EQ(Err.Number, 0);
    }
  }
}

TEST_F(BridgeFaultsTest, UserCloses_EveryCallFails_TellsSoAndEndsTheSession) {
  StartWithWord();
  const auto close = [this] { Attempt([this] { Office().UserCloses(translation_); }); };
  for (const std::string& call : CallsOf(close)) {
    SCOPED_TRACE(call);
    OpenAnew();
    Meet(Fault::kRaises, call);
    close();
    EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("4711")));
    EXPECT_TRUE(TimersRun());
    EXPECT_EQ(session_->docDst(), nullptr);
  }
}

TEST_F(BridgeFaultsTest, LibraryIsNotOfUse_EndsInTheText) {
  StartWithWord();
  for (const auto& make : std::vector<std::function<void()>>{
           UnregisterStandIn, [] { RegisterStandIn(L"C:\\gone.dll", L"C:\\gone.dll"); },
           [] { RegisterStandIn(StandInFile(L"StandInBridge.tlb"), L"C:\\gone.dll"); },
           [] { RegisterStandIn(StandInFile(L"TooShort.tlb"), StandInFile(L"StandInBridge.dll")); }}) {
    Boxes().Forget();
    make();
    EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
    EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(kFailed)));
    EXPECT_EQ(session_->objBridge(), nullptr);
    EXPECT_EQ(State(), "UNCHANGED");
  }
}

TEST_F(BridgeFaultsTest, DocumentTakesNoListener_EndsInTheText) {
  StartWithWord();
  theStandIn.takesListeners = false;
  EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(kFailed)));
  EXPECT_EQ(session_->docSrc(), nullptr);
}

TEST_F(BridgeFaultsTest, TitleIsNoText_KeepsTheDocumentsTitle) {
  StartWithWord();
  OpenSession();
  for (const VARTYPE type : {VARTYPE{VT_DISPATCH}, VARTYPE{VT_ERROR}, VARTYPE{VT_NULL},
                             VARTYPE{VT_ARRAY | VT_I4}, VARTYPE{0x0FFF}}) {
    VARIANT& title = theStandIn.contents["Title"];
    VariantInit(&title);
    title.vt = type;
    Office().UserSaves(translation_);
    EXPECT_EQ(Title(), "Styles") << type;
    EXPECT_EQ(State(), "MODIFIED_C_UNCHANGED_T");
  }
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(BridgeFaultsTest, TextsOfTenMillionCharactersAndNul_LeaveThePackageReadable) {
  StartWithWord();
  OpenSession();
  Translation().properties["Title"] = std::string("New\0styles", 10);
  Translation().links = {{std::string(10'000'000, 'x'), std::string("http://o\0ne", 11)}};
  Office().UserSaves(translation_);
  EXPECT_EQ(State(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Title(), "Styles") << "no line of the package can hold the new one";
  EXPECT_EQ(Entry(kPackage, Entry(kPackage, "1", "1ADDSECTION"), "COUNT"), "2");
  EXPECT_EQ(Entry(kPackage, "2", "PROGRESS"), "UNCHANGED") << "the other document is as it was";
}

}  // namespace
}  // namespace qb
