#include <gmock/gmock.h>

#include <chrono>
#include <utility>

#include "OfficeTest.h"

namespace qb {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

/// Talking with the helper: what it may do wrong, and what it is sent.
class OfficeClientTest : public OfficeTest {
 protected:
  std::shared_ptr<IBridgeDocument> OpenOne() { return Open(*AddGroup(R"(\pkg\a.doc)"), R"(\pkg\a.doc)"); }
  std::string TitleOf(IBridgeDocument& document) {
    return TextOf(document.CustomProperties()->Item(std::string("Title"))->Value());
  }
};

const char* const kOpened = R"({"id":$id,"result":{"document":1,"kind":"text"}})";

TEST_F(OfficeClientTest, TheHelperStartsAtTheFirstDocumentWithAProfileOfItsOwn) {
  Bridge();
  EXPECT_THAT(Starts(), ElementsAre());
  OpenOne();
  EXPECT_THAT(Starts(), ElementsAre(StartWith(1)));
}

TEST_F(OfficeClientTest, ThePathIsSentAsTheSystemWritesIt) {
  OpenOne();
  EXPECT_EQ(Native(R"(\pkg\a.doc)").string(), Request("open")["path"]);
  EXPECT_EQ(false, Request("open")["readOnly"]);
}

TEST_F(OfficeClientTest, ARequestIsSentBeforeTheOfficeIsReady) {
  Script({"on open", kReady, kOpened, "serve"});
  EXPECT_NE(nullptr, OpenOne());
}

TEST_F(OfficeClientTest, AnErrorIsRaisedWithTheTextOfTheAnswer) {
  Script(
      {kReady, "on open", R"({"id":$id,"error":{"code":"encrypted","text":"It is protected."}})", "serve"});
  EXPECT_EQ("It is protected.", RaisedBy([&] { OpenOne(); }));
}

TEST_F(OfficeClientTest, AnErrorWithoutATextIsRaisedWithItsCode) {
  Script({kReady, "on open", R"({"id":$id,"error":{"code":"damaged"}})", "serve"});
  EXPECT_THAT(RaisedBy([&] { OpenOne(); }), testing::HasSubstr("damaged"));
}

TEST_F(OfficeClientTest, LinesThatAreNoJsonAndAnswersThatNobodyAskedForArePassedOver) {
  Script({kReady, "part GTK warning: hello", "end", "{", R"([1,2])", R"({"id":99,"result":{}})",
          R"({"event":7})", R"({"event":"unheard of"})", R"({"event":"saved"})", R"({"id":"x"})", "{}",
          "on open", kOpened, "serve"});
  EXPECT_NE(nullptr, OpenOne());
}

TEST_F(OfficeClientTest, ALineMayComeInPieces) {
  Script({kReady, "on open", R"(part {"id":1,"res)", "sleep 30", R"(part ult":{"document":1,"kind":)",
          "sleep 30", R"(part "text"}})", "sleep 30", "end", "serve"});
  EXPECT_NE(nullptr, OpenOne());
}

TEST_F(OfficeClientTest, ALineOfTenMegabytesIsTaken) {
  Script({kReady, "serve 1", "on title", "big 10000000", "serve"});
  EXPECT_EQ(10000000U, TitleOf(*OpenOne()).size());
}

TEST_F(OfficeClientTest, AHelperThatFloodsWithoutALineEndIsEnded) {
  limits_->line = 100000;
  Script({kReady, "on open", "flood 2000000", "serve"});
  EXPECT_EQ("LibreOffice has ended.", RaisedBy([&] { OpenOne(); }));
}

TEST_F(OfficeClientTest, AHelperThatHangsIsEndedAndTheNextOpenStartsANewOne) {
  Script({kReady, "on open"});
  TheOffice().Prepare();
  RunUntil([&] { return Starts().size() == 1; });
  const milliseconds longest = std::exchange(limits_->answer, milliseconds(200));
  EXPECT_EQ("LibreOffice does not answer.", RaisedBy([&] { OpenOne(); }));
  limits_->answer = longest;
  EXPECT_NE(nullptr, OpenOne());
  // The office that hangs keeps its profile.
  EXPECT_THAT(Starts(), ElementsAre(StartWith(1), StartWith(2)));
}

TEST_F(OfficeClientTest, AHelperThatDiesInACallRaisesAndTheNextOpenStartsANewOne) {
  Script({kReady, "on open", "kill"});
  EXPECT_EQ("LibreOffice has ended.", RaisedBy([&] { OpenOne(); }));
  EXPECT_NE(nullptr, OpenOne());
  EXPECT_THAT(Starts(), ElementsAre(StartWith(1), StartWith(1)));
}

TEST_F(OfficeClientTest, ADocumentIsOpenedInANewOfficeIfTheOldOneEndsBeforeItBegins) {
  Script({kReady, "on open", R"({"event":"ended"})", "exit 0"});
  Script({kReady, "on open", R"({"id":$id,"error":{"code":"ended","text":"It has been ended."}})",
          R"({"event":"ended"})", "exit 0"});
  EXPECT_NE(nullptr, OpenOne());
  EXPECT_THAT(Starts(), ElementsAre(StartWith(1), StartWith(1), StartWith(1)));
  EXPECT_THAT(Calls(), ElementsAre("open", "open", "open"));
}

TEST_F(OfficeClientTest, AnOfficeThatEndsAgainAndAgainIsNotAskedForEver) {
  for (int start = 0; start < 3; ++start) Script({kReady, "on open", R"({"event":"ended"})", "exit 0"});
  EXPECT_EQ("LibreOffice has ended.", RaisedBy([&] { OpenOne(); }));
  EXPECT_EQ(3U, Starts().size());
}

TEST_F(OfficeClientTest, AnOfficeThatDiesOfADocumentIsNotAskedAgain) {
  Script({kReady, "on open", R"({"id":$id,"error":{"code":"office","text":"The office has ended"}})",
          R"({"event":"ended"})", "exit 0"});
  EXPECT_EQ("The office has ended", RaisedBy([&] { OpenOne(); }));
  EXPECT_EQ(1U, Starts().size());
}

TEST_F(OfficeClientTest, WhatADocumentSaidWhenItWasClosedIsAnsweredWithoutItsOffice) {
  Script(
      {kReady, "serve 1", "await go",
       R"({"event":"closed","document":1,"last":{"title":{"title":"Last"},"links":{"links":["http://x"]}}})",
       R"({"event":"ended"})", "exit 0"});
  const auto document = OpenOne();
  Signal("go");
  RunUntil([&] { return !events_.empty(); });
  EXPECT_EQ("Last", TitleOf(*document));
  EXPECT_EQ("http://x", document->Hyperlinks()->Item(1));
  EXPECT_THAT(Calls(), ElementsAre("open"));
}

TEST_F(OfficeClientTest, ADocumentThatIsClosedWhileItIsAskedIsAnsweredFromWhatItSaid) {
  Script({kReady, "serve 1", "on title",
          R"({"event":"closed","document":1,"last":{"title":{"title":"Last"}}})",
          R"({"id":$id,"error":{"code":"no-document","text":"It is closed."}})", "serve"});
  EXPECT_EQ("Last", TitleOf(*OpenOne()));
}

TEST_F(OfficeClientTest, AnOfficeThatCannotStartIsToldWithItsReason) {
  Script({R"({"event":"failed","text":"no display"})", "exit 1"});
  EXPECT_EQ("LibreOffice could not be started: no display", RaisedBy([&] { OpenOne(); }));
}

TEST_F(OfficeClientTest, AHelperThatEndsBeforeItIsReadyCouldNotBeStarted) {
  Script({"exit 127"});
  EXPECT_EQ("LibreOffice could not be started.", RaisedBy([&] { OpenOne(); }));
}

TEST_F(OfficeClientTest, WithoutAHelperThereIsNoBridge) {
  std::filesystem::remove(Native(R"(\bin\quillbank-office)"));
  EXPECT_EQ(nullptr, Bridge());
}

TEST_F(OfficeClientTest, AHelperThatIsNoProgramCouldNotBeStarted) {
  std::filesystem::remove(Native(R"(\bin\quillbank-office)"));
  Write(R"(\bin\quillbank-office)", "no program");
  EXPECT_EQ("LibreOffice could not be started.", RaisedBy([&] { OpenOne(); }));
}

TEST_F(OfficeClientTest, TheFirstProfileThatNoOtherProgramUsesIsTaken) {
  Script({"exit 3"});
  Script({"exit 3"});
  EXPECT_NE(nullptr, OpenOne());
  EXPECT_THAT(Starts(), ElementsAre(StartWith(1), StartWith(2), StartWith(3)));
  EXPECT_THAT(Calls(), ElementsAre("open"));
}

TEST_F(OfficeClientTest, WhenAllProfilesAreInUseTheOfficeCouldNotBeStarted) {
  limits_->profiles = 2;
  Script({"exit 3"});
  Script({"exit 3"});
  EXPECT_THAT(RaisedBy([&] { OpenOne(); }), testing::HasSubstr("all profile folders are in use"));
}

TEST_F(OfficeClientTest, TheOfficeIsStartedAheadWithoutAWait) {
  Script({"exit 3"});
  TheOffice().Prepare();
  RunUntil([&] { return Starts().size() == 2; });
  OpenOne();
  EXPECT_EQ(2U, Starts().size());
}

TEST_F(OfficeClientTest, TheHelperIsAskedToEndAndWaitedFor) {
  OpenOne();
  TheOffice().End();
  EXPECT_THAT(Calls(), ElementsAre("open", "quit"));
}

TEST_F(OfficeClientTest, AHelperThatDoesNotEndIsNotWaitedForForEver) {
  limits_->end = milliseconds(100);
  Script({kReady, "serve 1", "on quit", "await go", R"({"event":"closed","document":1})"});
  const auto document = OpenOne();
  TheOffice().End();
  EXPECT_THAT(events_, ElementsAre());
  // It is still there.
  Signal("go");
  RunUntil([&] { return !events_.empty(); });
  EXPECT_THAT(Calls(), ElementsAre("open", "quit"));
}

TEST_F(OfficeClientTest, AnEndWithoutAHelperAsksNobody) {
  TheOffice().End();
  EXPECT_THAT(Starts(), ElementsAre());
}

TEST_F(OfficeClientTest, ALongWaitIsShown) {
  limits_->patience = milliseconds(100);
  limits_->slice = milliseconds(10);
  Window().sbcStatusBar.SimpleText = "before";
  Script({"await shown", kReady, "on open", kOpened, "serve"});
  bool shown = false;
  Kit().whileWaiting = [&] {
    if (Window().sbcStatusBar.SimpleText.Get() != "Starting LibreOffice...") return;
    EXPECT_EQ(MousePointer::kHourglass, Pointer().shapes.back());
    Signal("shown");
    shown = true;
  };
  OpenOne();
  EXPECT_TRUE(shown);
  EXPECT_EQ("before", Window().sbcStatusBar.SimpleText.Get());
  EXPECT_EQ(MousePointer::kDefault, Pointer().shapes.back());
}

TEST_F(OfficeClientTest, InAShortWaitTheWindowStaysDrawnAndNothingIsShown) {
  Window().sbcStatusBar.SimpleText = "before";
  limits_->slice = milliseconds(1);
  Script({kReady, "on open", "await drawn", kOpened, "serve"});
  Kit().whileWaiting = [&] {
    EXPECT_EQ("before", Window().sbcStatusBar.SimpleText.Get());
    Signal("drawn");
  };
  OpenOne();
  EXPECT_TRUE(Pointer().shapes.empty());
}

TEST_F(OfficeClientTest, AnEventInACallIsRaisedBehindIt) {
  Script({kReady, "serve 1", "on title", R"({"event":"saved","document":1})",
          R"({"id":$id,"result":{"title":"New"}})", "serve"});
  const auto document = OpenOne();
  EXPECT_EQ("New", TitleOf(*document));
  EXPECT_THAT(events_, ElementsAre());
  RunUntil([&] { return !events_.empty(); });
  EXPECT_THAT(events_, ElementsAre("a.doc saved"));
}

TEST_F(OfficeClientTest, ATextThatIsNotInUtf8IsToldAndNotSent) {
  const auto document = OpenOne();
  EXPECT_THAT(
      RaisedBy([&] { document->CustomProperties()->Item(std::string("Title"))->Value(std::string("\xFF")); }),
      testing::HasSubstr("not in UTF-8"));
  EXPECT_THAT(Calls(), ElementsAre("open"));
}

}  // namespace
}  // namespace qb
