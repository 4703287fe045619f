// The Document Bridge of Windows, member by member.

#include <gmock/gmock.h>

#include "editors/EditorQuestions.h"
#include "editors/com/ComBridge.h"
#include "support/ScriptedBridge.h"
#include "windows/bridge/StandInClass.h"
#include "windows/bridge/StandInObject.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kDocument = R"(\pkg\dst\text.doc)";

std::vector<std::string> TextsOf(const std::shared_ptr<Collection<std::string>>& list) {
  std::vector<std::string> texts;
  for (std::size_t i = 1; list != nullptr && i <= list->Count(); ++i) texts.push_back(list->Item(i));
  return texts;
}

/// The number of the failure that `play` raises, 0 if it raises none.
template <class Play>
long FailureOf(Play&& play) {
  Attempt(std::forward<Play>(play));
  const long number = Err.Number;
  return number;
}

class ComBridgeTest : public ::testing::Test {
 protected:
  void SetUp() override { office_ = ScriptedBridge::Install(); }
  void TearDown() override {
    gEditorQuestions.newDocumentBridge = nullptr;
    Err.Clear();
  }

  std::shared_ptr<IBridge> NewBridge() { return gEditorQuestions.newDocumentBridge(); }
  std::shared_ptr<IBridgeDocument> OpenDocument() {
    group_ = AskFor<IBridgeGroup>(NewBridge()->Groups()->Add(kDocument));
    return AskFor<IBridgeDocument>(group_->Documents()->Open(kDocument, bridge_mode::kWritable));
  }

  std::shared_ptr<ScriptedBridge> office_;
  std::shared_ptr<IBridgeGroup> group_;
};

TEST_F(ComBridgeTest, QueryCapability_PassesTypeAndNumberAndGivesTheAnswer) {
  office_->capabilities["text/html 28"] = -7;
  EXPECT_EQ(NewBridge()->QueryCapability("text/html", 28), -7);
  EXPECT_THAT(office_->calls, ElementsAre("new bridge 1", "bridge 1 QueryCapability(text/html, 28)"));
}

TEST_F(ComBridgeTest, TwoBridges_AreTwoObjectsOfTheLibrary) {
  const auto first = NewBridge();
  const auto second = NewBridge();
  second->QueryCapability("text/html", 9);
  EXPECT_THAT(office_->calls, Contains("bridge 2 QueryCapability(text/html, 9)"));
  EXPECT_EQ(theStandIn.objects, 2);
}

TEST_F(ComBridgeTest, Text_OfAnyCharactersAndTenMillionOfThem_ArrivesWhole) {
  std::string text =
      "a\0b\n"
      "\xE3\x81\x82\xF0\x9F\x98\x80";
  text = std::string("a\0b", 3) + text;
  std::string large(10'000'000, 'x');
  large.back() = '!';
  const auto document = OpenDocument();
  for (const std::string& value : {text, large, std::string()}) {
    const auto title = document->CustomProperties()->Item(std::string("Title"));
    title->Value(value);
    EXPECT_EQ(office_->Describe(kDocument).properties["Title"], TaggedValue(value));
    EXPECT_EQ(title->Value(), TaggedValue(value));
  }
}

TEST_F(ComBridgeTest, Value_OfEachKind_PassesBothWays) {
  const auto value = OpenDocument()->CustomProperties()->Item(std::string("Any"));
  for (const TaggedValue& given :
       {TaggedValue(), TaggedValue(true), TaggedValue(false), TaggedValue(-5), TaggedValue(2.5)}) {
    value->Value(given);
    EXPECT_EQ(value->Value(), given);
  }
}

TEST_F(ComBridgeTest, Value_OfAForeignKind_IsTheNearestOfOursOrRaises13) {
  const auto value = OpenDocument()->CustomProperties()->Item(std::string("Any"));
  const auto give = [](VARTYPE type, std::int64_t bits) {
    VARIANT& other = theStandIn.contents["Any"];
    VariantInit(&other);
    other.vt = type;
    other.llVal = bits;
  };
  give(VT_NULL, 0);
  EXPECT_EQ(value->Value(), TaggedValue());
  give(VT_I2, -2);
  EXPECT_EQ(value->Value(), TaggedValue(-2));
  give(VT_UI1, 200);
  EXPECT_EQ(value->Value(), TaggedValue(200));
  give(VT_I8, 5'000'000'000);
  EXPECT_EQ(value->Value(), TaggedValue(5e9));
  give(VT_CY, 25'000);
  EXPECT_EQ(value->Value(), TaggedValue(2.5));
  give(VT_BSTR, 0);
  EXPECT_EQ(value->Value(), TaggedValue(std::string()));
  for (const VARTYPE type : {VARTYPE{VT_ERROR}, VARTYPE{VT_DISPATCH}, VARTYPE{VT_UNKNOWN},
                             VARTYPE{VT_ARRAY | VT_VARIANT}, VARTYPE{0x0FFF}}) {
    give(type, 0);
    EXPECT_EQ(FailureOf([&] { value->Value(); }), failure::kTypeMismatch) << type;
  }
}

TEST_F(ComBridgeTest, Hyperlinks_AreTheTextsInTheirOrder) {
  office_->Describe(kDocument).links = {{"http://one", "", "http://two", "http://one"}};
  for (const bool byPosition : {false, true}) {
    theStandIn.listsByPosition = byPosition;
    EXPECT_THAT(TextsOf(OpenDocument()->Hyperlinks()),
                ElementsAre("http://one", "", "http://two", "http://one"));
  }
}

TEST_F(ComBridgeTest, Hyperlinks_OfNone_IsAnEmptyListOrNothing) {
  const auto document = OpenDocument();
  for (const bool byPosition : {false, true}) {
    theStandIn.listsByPosition = byPosition;
    ASSERT_NE(document->Hyperlinks(), nullptr);
    EXPECT_EQ(document->Hyperlinks()->Count(), 0U);
  }
  office_->Describe(kDocument).hasLinkList = false;
  EXPECT_EQ(document->Hyperlinks(), nullptr);
}

TEST_F(ComBridgeTest, Hyperlinks_WithoutAnEnd_Raise) {
  office_->Describe(kDocument).links = {{"http://one", "http://two"}};
  const auto document = OpenDocument();
  theStandIn.listsWithoutEnd = true;
  for (const bool byPosition : {false, true}) {
    theStandIn.listsByPosition = byPosition;
    EXPECT_EQ(FailureOf([&] { document->Hyperlinks(); }), failure::kOverflow);
  }
}

TEST_F(ComBridgeTest, Failure_CarriesTheNumberAndTheWordsOfTheLibrary) {
  office_->RaiseAt("bridge 1 Groups", 4711);
  const auto bridge = NewBridge();
  try {
    bridge->Groups();
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 4711);
    EXPECT_EQ(error.Source(), "ScriptedBridge");
    EXPECT_EQ(error.Description(), "scripted failure");
  }
}

TEST_F(ComBridgeTest, Failure_OfTheSystemsOwn_KeepsItsNumberAndNamesTheMember) {
  const auto bridge = NewBridge();
  constexpr long kServerFailed = static_cast<long>(0x80010105);
  office_->RaiseAt("bridge 1 Groups", kServerFailed);
  EXPECT_EQ(FailureOf([&] { bridge->Groups(); }), kServerFailed);
}

TEST_F(ComBridgeTest, MemberThatGivesAnotherObject_RaisesTypeMismatchWhenAsked) {
  office_->GiveForeignObjectAt(R"(Groups.Add(\pkg\dst\text.doc))");
  const auto object = NewBridge()->Groups()->Add(kDocument);
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(FailureOf([&] { AskFor<IBridgeGroup>(object); }), failure::kTypeMismatch);
}

TEST_F(ComBridgeTest, BusyApplication_IsWaitedForAMoment) {
  const auto application = OpenDocument()->Application();
  theStandIn.busyFor = 3;
  EXPECT_EQ(application->TextProperty("Name"), "Microsoft Word");
  theStandIn.busyFor = 1000;
  EXPECT_EQ(FailureOf([&] { application->TextProperty("Name"); }), RPC_E_CALL_REJECTED);
  EXPECT_THAT(Err.Description, HasSubstr("'Name'"));
}

// --- events

TEST_F(ComBridgeTest, Events_ReachTheDocumentThatTheyBelongTo) {
  std::vector<std::string> heard;
  const auto document = OpenDocument();
  const auto other = AskFor<IBridgeDocument>(group_->Documents()->Open(R"(\pkg\src\text.doc)", 1));
  document->OnPostLocalSave = [&] { heard.emplace_back("saved"); };
  document->OnPostClose = [&] { heard.emplace_back("closed"); };
  other->OnPostClose = [&] { heard.emplace_back("other closed"); };
  office_->UserSaves(kDocument);
  office_->UserSaves(R"(\pkg\src\text.doc)");
  office_->UserCloses(R"(\pkg\src\text.doc)");
  office_->UserCloses(kDocument);
  EXPECT_THAT(heard, ElementsAre("saved", "other closed", "closed"));
}

TEST_F(ComBridgeTest, Events_TypeLibraryTellsOfNoClassThatRaisesThem_AreFoundThroughTheDocument) {
  RegisterStandIn(StandInFile(L"NoEvents.tlb"), StandInFile(L"StandInBridge.dll"));
  const auto document = OpenDocument();
  int saved = 0;
  int closed = 0;
  document->OnPostLocalSave = [&] { ++saved; };
  document->OnPostClose = [&] { ++closed; };
  office_->UserSaves(kDocument);
  EXPECT_EQ(saved, 1);
  EXPECT_EQ(closed, 0);
  office_->UserCloses(kDocument);
  EXPECT_EQ(closed, 1);
}

TEST_F(ComBridgeTest, Events_KindsOfListenersWithoutAnEndAndNoneKnown_Raise) {
  RegisterStandIn(StandInFile(L"NoEvents.tlb"), StandInFile(L"StandInBridge.dll"));
  theStandIn.listsWithoutEnd = true;
  EXPECT_NE(FailureOf([this] { OpenDocument(); }), 0);
  EXPECT_THAT(Err.Description, HasSubstr("events of a document"));
}

TEST_F(ComBridgeTest, Event_ThatLetsGoOfEverything_IsHandledToItsEnd) {
  auto document = OpenDocument();
  bool closed = false;
  document->OnPostClose = [&] {
    group_.reset();
    document.reset();
    closed = true;
  };
  group_->Close();
  EXPECT_TRUE(closed);
}

TEST_F(ComBridgeTest, EventDuringACall_WhatItsHandlerRaises_ComesOutOfTheCall) {
  const auto document = OpenDocument();
  document->OnPostClose = [] { throw RuntimeError(4711, "handler", "what went wrong"); };
  EXPECT_EQ(FailureOf([&] { group_->Close(); }), 4711);
  EXPECT_EQ(Err.Source, "handler");
}

TEST_F(ComBridgeTest, EventWhileTheListenerIsTaken_IsRaisedByTheNextTurnOfTheLoop) {
  theStandIn.closesWhileItTakesAListener = true;
  const auto document = OpenDocument();
  bool closed = false;
  document->OnPostClose = [&] { closed = true; };
  EXPECT_FALSE(closed);
  MSG message;
  while (!closed && GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  EXPECT_TRUE(closed);
}

TEST_F(ComBridgeTest, DocumentThatTakesNoListener_CannotBeOpened) {
  theStandIn.takesListeners = false;
  EXPECT_NE(FailureOf([&] { OpenDocument(); }), 0);
  EXPECT_THAT(Err.Description, HasSubstr("events of a document"));
}

}  // namespace
}  // namespace qb
