#include <gmock/gmock.h>

#include "OfficeTest.h"
#include "editors/EditorQuestions.h"
#include "foundation/gRvdFile.h"
#include "workflow/DocumentCommands.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kPackage = R"(\pkg\Trans.pxf)";

/// The commands of the program with documents that are out in the office.
class OfficeSessionTest : public OfficeTest {
 protected:
  /// Opens a package whose document "DOC1" is of this format.
  void OpenPackage(const std::string& format = "DOC") {
    std::string text = SmallPackage();
    ReplaceAll(text, "styles.css", "text." + format);
    ReplaceAll(text, "PROCESS=CSS", "PROCESS=" + std::string(format == "VSD" ? "VSD_HTML" : ""));
    ReplaceAll(text, "DOCUMENT_FORMAT=CSS", "DOCUMENT_FORMAT=" + format);
    ReplaceAll(text, "1DESCRIPTION=Styles", "1PROPSECTION=ADD2");
    text += "[ADD2]\r\nCOUNT=1\r\n1NAME=DESCRIPTION\r\n1VALUE=Styles\r\n1INFO=\r\n";
    Write(kPackage, text);
    for (const char* folder : {R"(\pkg\dst\)", R"(\pkg\src\)"}) Write(folder + ("text." + format), "content");
    TheOffice();
    gEditorQuestions.prepareOffice = [this] { TheOffice().Prepare(); };
    gEditorQuestions.endOffice = [this] { TheOffice().End(); };
    Start(kPackage);
  }
  bool Translate() {
    SelectNode("DOC1");
    return QbtTranslate();
  }
  std::string Progress() { return Entry(kPackage, "1", "PROGRESS"); }
  std::string Title() { return Entry(kPackage, "ADD2", "1VALUE"); }
  std::string Link(int number) {
    return Entry(kPackage, Entry(kPackage, "1", "1ADDSECTION"), std::to_string(number) + "VALUE");
  }
};

const char* const kSaved = R"({"event":"saved","document":2})";

TEST_F(OfficeSessionTest, APackageWithOfficeDocumentsStartsTheOfficeAhead) {
  OpenPackage();
  RunUntil([&] { return Starts().size() == 1; });
  EXPECT_THAT(Calls(), ElementsAre());
}

TEST_F(OfficeSessionTest, APackageWithoutOfficeDocumentsStartsNone) {
  OpenPackage("CSS");
  RunPending();
  EXPECT_THAT(Starts(), ElementsAre());
}

TEST_F(OfficeSessionTest, ADocumentIsOpenedBesideItsSource) {
  OpenPackage();
  ASSERT_TRUE(Translate());
  EXPECT_EQ("OPENUNCHANGED_C_UNCHANGED_T", Progress());
  EXPECT_THAT(Calls(), testing::Contains("arrange"));
  EXPECT_EQ(Native(R"(\pkg\dst\text.DOC)").string(), Request("open")["path"]);
}

TEST_F(OfficeSessionTest, ASaveBringsTitleAndLinksIntoThePackage) {
  Script({kReady, "until arrange", "await go", kSaved, "on title",
          R"({"id":$id,"result":{"title":"New title"}})", "on links",
          R"({"id":$id,"result":{"links":["http://a","http://b"]}})", "serve"});
  OpenPackage();
  ASSERT_TRUE(Translate());
  Signal("go");
  RunUntil([&] { return Progress() == "MODIFIED_C_UNCHANGED_T"; });
  EXPECT_EQ("New title", Title());
  EXPECT_EQ("http://a", Link(1));
  EXPECT_EQ("http://b", Link(2));
}

TEST_F(OfficeSessionTest, ASaveAtTheEndOfTheOfficeBringsTitleAndLinksIntoThePackage) {
  Script(
      {kReady, "until arrange", "await go", R"({"event":"closed","document":1})", kSaved,
       R"({"event":"closed","document":2,"last":{"title":{"title":"New title"},"links":{"links":["http://a"]}}})",
       R"({"event":"ended"})", "exit 0"});
  OpenPackage();
  ASSERT_TRUE(Translate());
  Signal("go");
  RunUntil([&] { return Progress() == "MODIFIED_C_UNCHANGED_T"; });
  EXPECT_EQ("New title", Title());
  EXPECT_EQ("http://a", Link(1));
  EXPECT_TRUE(gEditorSlots->CheckSlots());
}

/// What the office does behind a save whose links nobody gets, and the kind of document.
struct Silence {
  const char* name;
  const char* format;
  std::vector<std::string> script;
};

class OfficeSilenceTest : public OfficeSessionTest, public testing::WithParamInterface<Silence> {};

TEST_P(OfficeSilenceTest, ASaveIsRecordedWithoutABox) {
  std::vector<std::string> script = GetParam().script;
  script.insert(script.begin(), {kReady, "until arrange", "await go", kSaved});
  Script(script);
  OpenPackage(GetParam().format);
  ASSERT_TRUE(Translate());
  const auto boxes = Boxes().Shown().size();
  Signal("go");
  RunUntil([&] { return Progress() == "MODIFIED_C_UNCHANGED_T"; });
  EXPECT_THAT(Bytes(R"(\pkg\Protocol.txt)"), HasSubstr("The links of"));
  EXPECT_EQ("Styles", Title());
  EXPECT_EQ(boxes, Boxes().Shown().size());
}

const char* const kRefusedLinks = R"({"id":$id,"error":{"code":"office","text":"Too many links."}})";
const char* const kTranslationClosed = R"({"event":"closed","document":2})";

INSTANTIATE_TEST_SUITE_P(
    Office, OfficeSilenceTest,
    testing::Values(Silence{"RefusesForAText", "DOC", {"until title", "on links", kRefusedLinks, "serve"}},
                    Silence{"RefusesForSlides", "PPT", {"until title", "on links", kRefusedLinks, "serve"}},
                    Silence{"DiesWhenAsked", "DOC", {"until title", "on links", "kill"}},
                    Silence{"DiesRightAfterTheSave", "DOC", {"kill"}},
                    Silence{"ClosesWithoutAWord", "PPT", {kTranslationClosed, "serve"}}),
    [](const auto& test) { return test.param.name; });

TEST_F(OfficeSessionTest, LinksThatCannotBeHadAreAskedForOnceAndTheNextSaveAsksAgain) {
  Script({kReady, "until arrange", "await go", kSaved, "until title", "on links",
          R"({"id":$id,"error":{"code":"office","text":"no"}})", "await more", kSaved, "serve"});
  OpenPackage();
  ASSERT_TRUE(Translate());
  Signal("go");
  RunUntil([&] { return Progress() == "MODIFIED_C_UNCHANGED_T"; });
  EXPECT_EQ("links", Calls().back());
  const auto calls = Calls().size();
  Signal("more");
  RunUntil([&] { return Calls().size() == calls + 2; });
  EXPECT_EQ("links", Calls().back());
}

TEST_F(OfficeSessionTest, ADocumentWithoutATitleKeepsThatOfThePackage) {
  Script({kReady, "until arrange", "await go", kSaved, "serve"});
  OpenPackage();
  ASSERT_TRUE(Translate());
  Signal("go");
  RunUntil([&] { return Progress() == "MODIFIED_C_UNCHANGED_T"; });
  EXPECT_EQ("Styles", Title());
}

TEST_F(OfficeSessionTest, AClosedTranslationClosesItsSourceAndEndsTheSession) {
  Script({kReady, "until arrange", "await go", R"({"event":"closed","document":2})", "serve"});
  OpenPackage();
  ASSERT_TRUE(Translate());
  Signal("go");
  RunUntil([&] { return Progress() == "UNCHANGED"; });
  EXPECT_EQ(nlohmann::json::array({1}), Request("close")["documents"]);
  EXPECT_TRUE(gEditorSlots->CheckSlots());
}

TEST_F(OfficeSessionTest, AClosedSourceClosesItsTranslationWithItsSave) {
  Script({kReady, "until arrange", "await go", R"({"event":"closed","document":1})", "on close", kSaved,
          R"({"event":"closed","document":2})", R"({"id":$id,"result":{}})", "serve"});
  OpenPackage();
  ASSERT_TRUE(Translate());
  Signal("go");
  RunUntil([&] { return gEditorSlots->CheckSlots(); });
  EXPECT_EQ("MODIFIED_C_UNCHANGED_T", Progress());
}

TEST_F(OfficeSessionTest, AnOfficeThatDiesClosesTheDocumentAndTheNextOneStartsAnew) {
  Script({kReady, "until arrange", "await go", "kill"});
  OpenPackage();
  ASSERT_TRUE(Translate());
  Signal("go");
  RunUntil([&] { return Progress() == "UNCHANGED"; });
  EXPECT_TRUE(gEditorSlots->CheckSlots());
  EXPECT_TRUE(Translate());
  EXPECT_EQ(2U, Starts().size());
}

TEST_F(OfficeSessionTest, ADocumentThatIsOutIsNotOpenedAgain) {
  OpenPackage();
  ASSERT_TRUE(Translate());
  EXPECT_FALSE(Translate());
  EXPECT_THAT(Boxes().Shown().back().text, HasSubstr("already open"));
}

TEST_F(OfficeSessionTest, ADocumentThatTheUserHasOpenInAnOfficeOfHisOwnIsNotOpened) {
  OpenPackage();
  Write(R"(\pkg\dst\.~lock.text.DOC#)", ",you,host,1.1.2026 10:00,file:///home/you/.config/libreoffice/4;");
  EXPECT_FALSE(Translate());
  EXPECT_EQ("Document is already open!", Boxes().Shown().back().text);
  EXPECT_EQ("UNCHANGED", Progress());
}

TEST_F(OfficeSessionTest, AnErrorOfTheOfficeEndsInTheErrorOfTheProgramAndIsInTheProtocol) {
  Script({kReady, "serve 1", "on open",
          R"({"id":$id,"error":{"code":"encrypted","text":"The document is protected by a password."}})",
          "serve"});
  OpenPackage();
  EXPECT_FALSE(Translate());
  EXPECT_THAT(Boxes().Shown().back().text,
              HasSubstr("Source document or translation document does not exist"));
  EXPECT_THAT(Bytes(R"(\pkg\Protocol.txt)"), HasSubstr("protected by a password"));
  EXPECT_EQ("UNCHANGED", Progress());
}

TEST_F(OfficeSessionTest, AVisioDrawingIsRefusedWithAClearText) {
  OpenPackage("VSD");
  EXPECT_FALSE(Translate());
  ASSERT_EQ(2U, Boxes().Shown().size());
  EXPECT_THAT(Boxes().Shown()[0].text, HasSubstr("cannot save them"));
  EXPECT_THAT(Calls(), ElementsAre());
}

TEST_F(OfficeSessionTest, TheEndOfTheProgramClosesWhatIsOutAndEndsTheOffice) {
  OpenPackage();
  ASSERT_TRUE(Translate());
  Boxes().AnswerNext(box::kYes);
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_THAT(Calls(), testing::IsSupersetOf({"close", "quit"}));
  EXPECT_EQ("quit", Calls().back());
  EXPECT_EQ("UNCHANGED", Progress());
}

TEST_F(OfficeSessionTest, TenThousandTicksWithADocumentOutAskTheOfficeNothing) {
  OpenPackage();
  ASSERT_TRUE(Translate());
  const auto calls = Calls();
  for (int tick = 0; tick < 10000; ++tick) Tick();
  EXPECT_EQ(calls, Calls());
}

}  // namespace
}  // namespace qb
