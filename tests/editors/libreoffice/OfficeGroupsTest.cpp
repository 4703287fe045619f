#include <gmock/gmock.h>

#include "OfficeTest.h"

namespace qb {
namespace {

using testing::ElementsAre;

constexpr const char* kA = R"(\pkg\a.doc)";
constexpr const char* kB = R"(\pkg\b.doc)";
constexpr const char* kC = R"(\pkg\c.doc)";

/// Groups and their documents, and the events of these.
class OfficeGroupsTest : public OfficeTest {
 protected:
  /// Opens source "a.doc" and translation "b.doc" in the group of the translation.
  void OpenPair() {
    group_ = AddGroup(kB);
    source_ = Open(*group_, kA, bridge_mode::kReadOnly);
    translation_ = Open(*group_, kB);
  }

  std::shared_ptr<IBridgeGroup> group_;
  std::shared_ptr<IBridgeDocument> source_;
  std::shared_ptr<IBridgeDocument> translation_;
};

TEST_F(OfficeGroupsTest, APathWithoutAGroupRaises) {
  const auto bridge = Bridge();
  EXPECT_THAT(RaisedBy([&] { bridge->Groups()->Item(std::string(kA)); }), testing::HasSubstr(kA));
}

TEST_F(OfficeGroupsTest, AGroupIsThereWhileItHasDocuments) {
  const auto group = AddGroup(kB);
  EXPECT_EQ(0, Count(kB));
  OpenPair();
  EXPECT_EQ(2, Count(kB));
  group_->Close();
  EXPECT_EQ(0, Count(kB));
}

TEST_F(OfficeGroupsTest, GroupsAreTheSameThroughEachBridge) {
  OpenPair();
  EXPECT_EQ(2, Bridge()->Groups()->Item(std::string(kB))->Documents()->Count());
}

TEST_F(OfficeGroupsTest, GroupsOutliveTheirBridgesAndLettingGoClosesNothing) {
  OpenPair();
  group_.reset();
  source_.reset();
  translation_.reset();
  RunPending();
  EXPECT_EQ(2, Count(kB));
  EXPECT_THAT(Calls(), ElementsAre("open", "open"));
}

TEST_F(OfficeGroupsTest, APathThatIsOpenInAnotherGroupCountsAsOpen) {
  OpenPair();
  EXPECT_EQ(1, Count(kA));
}

TEST_F(OfficeGroupsTest, PathsAreTheSameWhateverTheirSpelling) {
  OpenPair();
  EXPECT_EQ(2, Count(R"(\PKG\.\B.DOC)"));
  Native(R"(\pkg\link.doc)");
  std::filesystem::create_hard_link(Native(kB), Native(R"(\pkg\link.doc)"));
  EXPECT_EQ(2, Count(R"(\pkg\link.doc)"));
}

TEST_F(OfficeGroupsTest, AVisioTranslationIsRefusedBeforeAnythingOpens) {
  Write(R"(\pkg\d.vsd)", "drawing");
  EXPECT_THAT(RaisedBy([&] { AddGroup(R"(\pkg\d.vsd)"); }), testing::HasSubstr("cannot save them"));
  EXPECT_THAT(Starts(), ElementsAre());
}

TEST_F(OfficeGroupsTest, AMissingTranslationIsRefusedBeforeItsSourceOpens) {
  EXPECT_THAT(RaisedBy([&] { AddGroup(R"(\pkg\gone.doc)"); }), testing::HasSubstr("does not exist"));
  EXPECT_THAT(Starts(), ElementsAre());
}

TEST_F(OfficeGroupsTest, TheCapabilitiesHoldForTheTypesOfTheEditors) {
  const auto bridge = Bridge();
  for (const char* type :
       {"text/plain", "text/html", "application/vnd.ms-powerpoint", "application/msword", "vnd.visio"}) {
    for (const int capability : {9, 25, 28}) EXPECT_NE(0, bridge->QueryCapability(type, capability)) << type;
    EXPECT_EQ(0, bridge->QueryCapability(type, 10)) << type;
  }
  EXPECT_EQ(0, bridge->QueryCapability("image/png", 9));
}

TEST_F(OfficeGroupsTest, TheModeOfAnOpeningIsSent) {
  OpenPair();
  EXPECT_EQ(false, Request("open")["readOnly"]);
  Open(*group_, kC, bridge_mode::kReadOnly);
  EXPECT_EQ(true, Request("open")["readOnly"]);
}

TEST_F(OfficeGroupsTest, TheGroupIsArrangedOnTheScreenOfTheProgram) {
  OpenPair();
  Kit().workArea = {10, 20, 1000, 700};
  group_->Arrange(3);
  const auto request = Request("arrange");
  EXPECT_EQ(nlohmann::json::array({1, 2}), request["documents"]);
  EXPECT_EQ(3, request["style"]);
  EXPECT_EQ((nlohmann::json{{"x", 10}, {"y", 20}, {"width", 1000}, {"height", 700}}), request["screen"]);
}

TEST_F(OfficeGroupsTest, WindowsThatCannotBeArrangedDoNotEndTheSession) {
  Script({kReady, "serve 2", "on arrange", R"({"id":$id,"error":{"code":"office","text":"no"}})", "serve"});
  OpenPair();
  group_->Arrange(2);
  EXPECT_EQ(0, Err.Number);
}

TEST_F(OfficeGroupsTest, AnEmptyGroupIsNotArranged) {
  AddGroup(kB)->Arrange(3);
  EXPECT_THAT(Starts(), ElementsAre());
}

TEST_F(OfficeGroupsTest, ACloseOfTheGroupRaisesItsEventsBeforeItReturns) {
  OpenPair();
  group_->Close();
  EXPECT_THAT(events_, ElementsAre("a.doc closed", "b.doc closed"));
  RunPending();
  EXPECT_EQ(2U, events_.size());
}

TEST_F(OfficeGroupsTest, ASaveAtTheCloseIsRaisedInItsOrder) {
  Script({kReady, "serve 2", "on close", R"({"event":"closed","document":1})",
          R"({"event":"saved","document":2})", R"({"event":"closed","document":2})",
          R"({"id":$id,"result":{}})", "serve"});
  OpenPair();
  group_->Close();
  EXPECT_THAT(events_, ElementsAre("a.doc closed", "b.doc saved", "b.doc closed"));
}

TEST_F(OfficeGroupsTest, ADocumentLeavesTheCountBeforeItsEvent) {
  OpenPair();
  std::vector<int> counts;
  source_->OnPostClose = [&] { counts.push_back(Count(kB)); };
  translation_->OnPostClose = [&] { counts.push_back(Count(kB)); };
  group_->Close();
  EXPECT_THAT(counts, ElementsAre(1, 0));
}

TEST_F(OfficeGroupsTest, ACloseFromWithinTheCloseIsNotAskedAgain) {
  OpenPair();
  source_->OnPostClose = [&] {
    events_.push_back("a.doc closed");
    if (group_->Documents()->Count() > 0) group_->Close();
    events_.push_back("a.doc done");
  };
  group_->Close();
  EXPECT_THAT(events_, ElementsAre("a.doc closed", "b.doc closed", "a.doc done"));
  EXPECT_THAT(Calls(), ElementsAre("open", "open", "close"));
}

TEST_F(OfficeGroupsTest, TheGroupMayBeLetGoOfWhileItCloses) {
  OpenPair();
  source_->OnPostClose = [&] {
    group_.reset();
    source_.reset();
  };
  group_->Close();
  EXPECT_THAT(events_, ElementsAre("b.doc closed"));
}

TEST_F(OfficeGroupsTest, ACloseThatTheOfficeRefusesRaisesAndTheDocumentStays) {
  Script({kReady, "serve 2", "on close", R"({"event":"closed","document":1})",
          R"({"id":$id,"error":{"code":"office","text":"A dialog is open."}})", "serve"});
  OpenPair();
  EXPECT_EQ("A dialog is open.", RaisedBy([&] { group_->Close(); }));
  EXPECT_THAT(events_, ElementsAre("a.doc closed"));
  EXPECT_EQ(1, Count(kB));
  group_->Close();
  EXPECT_EQ(2, Request("close")["documents"][0]);
  EXPECT_EQ(0, Count(kB));
}

TEST_F(OfficeGroupsTest, AnAnswerToACloseCountsAsClosedEvenWithoutTheEvents) {
  Script({kReady, "serve 2", "on close", R"({"id":$id,"result":{}})", "serve"});
  OpenPair();
  group_->Close();
  EXPECT_THAT(events_, ElementsAre("a.doc closed", "b.doc closed"));
}

TEST_F(OfficeGroupsTest, AnOfficeThatDiesInACloseHasClosed) {
  Script({kReady, "serve 2", "on close", "kill"});
  OpenPair();
  group_->Close();
  EXPECT_THAT(events_, ElementsAre("a.doc closed", "b.doc closed"));
}

TEST_F(OfficeGroupsTest, WhatTheHandlerOfACloseRaisesComesOutAndTheOtherEventsStillCome) {
  OpenPair();
  source_->OnPostClose = [] { throw RuntimeError(failure::kOwn, "", "handler"); };
  EXPECT_EQ("handler", RaisedBy([&] { group_->Close(); }));
  RunUntil([&] { return !events_.empty(); });
  EXPECT_THAT(events_, ElementsAre("b.doc closed"));
}

TEST_F(OfficeGroupsTest, WhatTheUserDoesIsRaisedInItsOrderEachOnce) {
  Script({kReady, "serve 2", "await go", R"({"event":"saved","document":2})",
          R"({"event":"saved","document":2})", R"({"event":"closed","document":2})",
          R"({"event":"closed","document":2})", R"({"event":"saved","document":2})",
          R"({"event":"closed","document":1})", "serve"});
  OpenPair();
  Signal("go");
  RunUntil([&] { return events_.size() >= 4; });
  EXPECT_THAT(events_, ElementsAre("b.doc saved", "b.doc saved", "b.doc closed", "a.doc closed"));
  EXPECT_EQ(0, Count(kB));
}

TEST_F(OfficeGroupsTest, AnEventBehindTheAnswerToItsOpeningIsRaisedAfterTheReturn) {
  // In one piece, so that the document's events are read before it has its handlers.
  Script({kReady, "on open", R"({"id":$id,"result":{"document":9,"kind":"text"}})",
          R"({"event":"closed","document":9})", "serve"});
  const auto document = Open(*AddGroup(kB), kB);
  RunUntil([&] { return !events_.empty(); });
  EXPECT_EQ(0, Count(kB));
}

TEST_F(OfficeGroupsTest, WhenTheHelperDiesEachOpenDocumentIsClosedInItsOrder) {
  Script({kReady, "serve 3", "await go", "kill"});
  OpenPair();
  const auto other = AddGroup(kC);
  const auto third = Open(*other, kC);
  Signal("go");
  RunUntil([&] { return events_.size() >= 3; });
  EXPECT_THAT(events_, ElementsAre("a.doc closed", "b.doc closed", "c.doc closed"));
  EXPECT_EQ(0, Count(kB));
  EXPECT_EQ(0, Count(kC));
}

TEST_F(OfficeGroupsTest, WhenTheOfficeDiesTheClosesOfTheHelperAreNotDoubled) {
  Script({kReady, "serve 2", "await go", R"({"event":"closed","document":1})",
          R"({"event":"closed","document":2})", R"({"event":"ended"})", "exit 0"});
  OpenPair();
  Signal("go");
  RunUntil([&] { return events_.size() >= 2; });
  EXPECT_THAT(events_, ElementsAre("a.doc closed", "b.doc closed"));
  const auto again = Open(*AddGroup(kB), kB);
  EXPECT_NE(nullptr, again);
  EXPECT_EQ(2U, Starts().size());
}

TEST_F(OfficeGroupsTest, NumbersOfANewOfficeAreNotThoseOfTheOldOne) {
  Script({kReady, "serve 1", "await go", "kill"});
  Script({kReady, "serve 1", "await more", R"({"event":"saved","document":1})", "serve"});
  const auto first = Open(*AddGroup(kA), kA);
  Signal("go");
  RunUntil([&] { return events_.size() == 1; });
  const auto second = Open(*AddGroup(kB), kB);
  Signal("more");
  RunUntil([&] { return events_.size() == 2; });
  EXPECT_THAT(events_, ElementsAre("a.doc closed", "b.doc saved"));
}

TEST_F(OfficeGroupsTest, AClosedDocumentCanStillBeAskedForWhatItsSaveLeftAndSoCanOneOfALostOffice) {
  for (const char* end : {"serve", "kill"}) {
    TheOffice().End();
    events_.clear();
    std::filesystem::remove(scripts_ / "go");
    Script({kReady, "serve 1", "await go", R"({"event":"saved","document":1})",
            R"({"event":"closed","document":1,"last":{"title":{"title":"New"},"links":{"links":["x"]}}})",
            end});
    const auto document = Open(*AddGroup(kA), kA);
    document->OnPostLocalSave = [&] {
      const auto title = document->CustomProperties()->Item(std::string("Title"))->Value();
      events_.push_back(TextOf(title) + " with " + document->Hyperlinks()->Item(1));
    };
    Signal("go");
    RunUntil([&] { return events_.size() == 2; });
    EXPECT_THAT(events_, ElementsAre("New with x", "a.doc closed"));
    EXPECT_EQ("open", Calls().back());
  }
}

TEST_F(OfficeGroupsTest, AClosedDocumentThatSaidNothingNewSaysWhatItSaidLast) {
  Script({kReady, "serve 1", "await go", R"({"event":"saved","document":1})", "on links",
          R"({"event":"saved","document":1})", R"({"id":$id,"result":{"links":["x"]}})",
          R"({"event":"closed","document":1})", "serve"});
  const auto document = Open(*AddGroup(kA), kA);
  document->OnPostLocalSave = [&] { events_.push_back(document->Hyperlinks()->Item(1)); };
  Signal("go");
  RunUntil([&] { return events_.size() == 3; });
  EXPECT_THAT(events_, ElementsAre("x", "x", "a.doc closed"));
}

TEST_F(OfficeGroupsTest, WhatADocumentSaidAtItsCloseIsNewerThanAnAnswerThatComesBehindIt) {
  Script({kReady, "serve 1", "await go", R"({"event":"saved","document":1})", "on links",
          R"({"event":"saved","document":1})",
          R"({"event":"closed","document":1,"last":{"links":{"links":["new"]}}})",
          R"({"id":$id,"result":{"links":["old"]}})", "serve"});
  const auto document = Open(*AddGroup(kA), kA);
  document->OnPostLocalSave = [&] { events_.push_back(document->Hyperlinks()->Item(1)); };
  Signal("go");
  RunUntil([&] { return events_.size() == 3; });
  EXPECT_THAT(events_, ElementsAre("new", "new", "a.doc closed"));
}

TEST_F(OfficeGroupsTest, ATitleIsNotSetInADocumentThatIsClosed) {
  const auto document = Open(*AddGroup(kA), kA);
  Bridge()->Groups()->Item(std::string(kA))->Close();
  const auto title = document->CustomProperties()->Item(std::string("Title"));
  EXPECT_THAT(RaisedBy([&] { title->Value(std::string("New")); }), testing::HasSubstr("has gone"));
  EXPECT_EQ("close", Calls().back());
}

TEST_F(OfficeGroupsTest, AFileThatWasWrittenIsToldAsSavedEvenIfTheOfficeDiedBeforeItSaidSo) {
  Script({kReady, "serve 2", "await go", "kill"});
  OpenPair();
  Write(kA, "a source is not ours to save");
  Write(kB, "written by the office");
  Signal("go");
  RunUntil([&] { return events_.size() == 3; });
  EXPECT_THAT(events_, ElementsAre("a.doc closed", "b.doc saved", "b.doc closed"));
}

TEST_F(OfficeGroupsTest, ASaveThatWasToldIsNotToldAgainAtTheClose) {
  Script({kReady, "serve 2", "await go", R"({"event":"saved","document":2})",
          R"({"event":"closed","document":2})", "serve"});
  OpenPair();
  Write(kB, "written by the office");
  Signal("go");
  RunUntil([&] { return events_.size() == 2; });
  EXPECT_THAT(events_, ElementsAre("b.doc saved", "b.doc closed"));
}

TEST_F(OfficeGroupsTest, ADocumentOfALostOfficeAnswersNothing) {
  Script({kReady, "serve 1", "await go", "kill"});
  const auto document = Open(*AddGroup(kA), kA);
  Signal("go");
  RunUntil([&] { return !events_.empty(); });
  EXPECT_THAT(RaisedBy([&] { document->Hyperlinks(); }), testing::HasSubstr("has gone"));
  EXPECT_EQ(1U, Starts().size());
}

TEST_F(OfficeGroupsTest, EventsThatComeWhileAHandlerAsksAreRaisedBehindIt) {
  Script({kReady, "serve 1", "await go", R"({"event":"saved","document":1})", "on links",
          R"({"event":"closed","document":1})", R"({"id":$id,"result":{"links":["x"]}})", "serve"});
  const auto document = Open(*AddGroup(kA), kA);
  document->OnPostLocalSave = [&] {
    events_.push_back("saved with " + std::to_string(document->Hyperlinks()->Count()));
  };
  Signal("go");
  RunUntil([&] { return events_.size() >= 2; });
  EXPECT_THAT(events_, ElementsAre("saved with 1", "a.doc closed"));
}

TEST_F(OfficeGroupsTest, AFailureInAHandlerIsReportedAndTheNextEventComes) {
  Start();
  Script({kReady, "serve 1", "await go", R"({"event":"saved","document":1})",
          R"({"event":"closed","document":1})", "serve"});
  const auto document = Open(*AddGroup(kA), kA);
  document->OnPostLocalSave = [] { throw RuntimeError(failure::kOwn, "", "handler"); };
  Signal("go");
  RunUntil([&] { return !events_.empty(); });
  EXPECT_THAT(events_, ElementsAre("a.doc closed"));
  EXPECT_THAT(Boxes().Shown().back().text, testing::HasSubstr("handler"));
}

}  // namespace
}  // namespace qb
