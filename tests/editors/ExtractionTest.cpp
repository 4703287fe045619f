// Title and links of a saved document.

#include <gmock/gmock.h>

#include "editors/EditorQuestions.h"
#include "support/BridgeTest.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;

/// A parser that answers what the test told.
struct ScriptedParser : IHtmlParser {
  std::string Title() override {
    if (failsAtTitle) throw RuntimeError(failure::kInternalError);
    return title;
  }
  void Parse(std::string_view fileName, std::vector<TaggedValue>& found, std::int32_t first,
             std::int32_t second, std::int32_t& result) override {
    calls.push_back(std::string(fileName) + " " + std::to_string(first) + " " + std::to_string(second));
    if (fails) throw RuntimeError(failure::kInternalError);
    found = links;
    result = code;
  }

  std::string title;
  std::vector<TaggedValue> links;
  std::int32_t code = 0;
  bool fails = false;
  bool failsAtTitle = false;
  std::vector<std::string> calls;
};

class ExtractionTest : public BridgeTest {
 protected:
  void OpenHtml() {
    StartWithHtml();
    gEditorQuestions.newHtmlParser = [this] { return parser_; };
    OpenSession();
  }
  void Save() { Office().UserSaves(translation_); }
  std::string Protocol() { return Bytes(R"(\pkg\Protocol.txt)"); }

  std::shared_ptr<ScriptedParser> parser_ = std::make_shared<ScriptedParser>();
};

// --- through the bridge

TEST_F(ExtractionTest, Word_NoTitleProperty_KeepsTheDocumentsTitleWithoutAMessage) {
  StartWith("DOC_HTML", "DOC");
  OpenSession();
  Office().RaiseAt(R"(document \pkg\dst\text.doc CustomProperties.Item(Title))");
  const std::string protocol = Protocol();
  Save();
  EXPECT_EQ(Title(), "Styles");
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Protocol(), protocol);
  EXPECT_EQ(Err.Number, 0);
  EXPECT_EQ(Links(), "0: ");
}

TEST_F(ExtractionTest, Title_AnyFailureOnItsWay_KeepsTheDocumentsTitle) {
  for (const char* call : {"CustomProperties", "CustomProperties.Item(Title)", "Title.Value"}) {
    StartWith("DOC_HTML", "DOC");
    OpenSession();
    Office().RaiseAt(R"(document \pkg\dst\text.doc )" + std::string(call));
    Save();
    EXPECT_EQ(Title(), "Styles") << call;
    EXPECT_EQ(Links(), "0: ") << call;
    ResetProgramState();
  }
}

TEST_F(ExtractionTest, Title_OfOneCharacterOrNone_IsNotBelieved) {
  StartWithWord();
  OpenSession();
  for (const char* title : {"", "x", "\xE8\xAA\x9E"}) {
    Translation().properties["Title"] = std::string(title);
    Save();
    EXPECT_EQ(Title(), "Styles") << title;
  }
  Translation().properties["Title"] = std::string("xy");
  Save();
  EXPECT_EQ(Title(), "xy");
}

TEST_F(ExtractionTest, Title_OfAnotherType_IsTakenAsText) {
  StartWithWord();
  OpenSession();
  Translation().properties["Title"] = 2024;
  Save();
  EXPECT_EQ(Title(), "2024");
}

TEST_F(ExtractionTest, Word_GivesTheLinksOfItsDocumentByEitherName) {
  for (const char* name : {"Word", "Microsoft Word"}) {
    StartWithWord();
    OpenSession();
    Translation().application = name;
    Translation().links = {{"http://a", "http://b"}};
    Save();
    EXPECT_EQ(Links(), "2: http://a http://b ");
    ResetProgramState();
  }
}

TEST_F(ExtractionTest, PowerPoint_GivesTheLinksInSlideOrderByEitherName) {
  for (const char* name : {"PowerPoint", "Microsoft PowerPoint"}) {
    StartWithPresentation();
    OpenSession();
    Translation().application = name;
    Translation().links = {{"http://1a", "http://1b"}, {}, {"http://3"}};
    Save();
    EXPECT_EQ(Links(), "3: http://1a http://1b http://3 ");
    ResetProgramState();
  }
}

TEST_F(ExtractionTest, PowerPoint_NoLinksAtAll_WritesAnEmptyList) {
  StartWithPresentation();
  OpenSession();
  Translation().links = {{}, {}};
  Save();
  EXPECT_EQ(Links(), "0: ");
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(ExtractionTest, OtherApplication_GivesTheBridgesOwnList) {
  StartWithWord();
  OpenSession();
  Translation().application = "Writer";
  Translation().links = {{"http://a", "http://a"}};
  Save();
  EXPECT_EQ(Links(), "2: http://a http://a ");
}

TEST_F(ExtractionTest, OtherApplication_ListFails_SavesTheStateOnly) {
  StartWithWord();
  OpenSession();
  Translation().application = "Writer";
  Translation().properties["Title"] = std::string("New styles");
  Office().RaiseAt(R"(document \pkg\dst\text.doc Hyperlinks)");
  Save();
  EXPECT_EQ(Title(), "Styles");
  EXPECT_EQ(Entry(kPackage, "1", "1ADDSECTION"), "");
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(ExtractionTest, OtherApplication_ListIsNothing_SaysSoInTheProtocol) {
  StartWithWord();
  OpenSession();
  Translation().application = "Writer";
  Translation().hasLinkList = false;
  Save();
  EXPECT_THAT(Protocol(), HasSubstr("Could not write hyperlinks to PXF file"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(ExtractionTest, AskingAnApplicationByNameFails_GoesToWhoRaisedTheSave) {
  for (const char* call : {"Application", "Application.Name", "HostDocument", "HostDocument.Hyperlinks",
                           "Hyperlinks elements", "Hyperlinks link.Address"}) {
    StartWithWord();
    OpenSession();
    Translation().links = {{"http://a"}};
    Office().RaiseAt(R"(document \pkg\dst\text.doc )" + std::string(call), 4711);
    EXPECT_THROW(Save(), RuntimeError) << call;
    EXPECT_EQ(Entry(kPackage, "1", "1ADDSECTION"), "") << call;
    EXPECT_TRUE(Window().tmrTimer1.Enabled) << call;
    ResetProgramState();
  }
}

TEST_F(ExtractionTest, AskingForSlidesFails_GoesToWhoRaisedTheSave) {
  for (const char* call :
       {"Application.ActivePresentation", "ActivePresentation.Slides", "Slides elements", "slide.Hyperlinks",
        "slide Hyperlinks elements", "slide Hyperlinks link.Address"}) {
    StartWithPresentation();
    OpenSession();
    Translation().links = {{"http://a"}};
    Office().RaiseAt(R"(document \pkg\dst\text.ppt )" + std::string(call));
    EXPECT_THROW(Save(), RuntimeError) << call;
    ResetProgramState();
  }
}

TEST_F(ExtractionTest, ApplicationIsNothing_RaisesThatItIsNotSet) {
  StartWithWord();
  OpenSession();
  Office().GiveNothingAt(R"(document \pkg\dst\text.doc Application)");
  try {
    Save();
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), failure::kObjectNotSet);
  }
}

TEST_F(ExtractionTest, Visio_HasNoLinksToExtract) {
  StartWithVisio();
  OpenSession();
  Save();
  EXPECT_THAT(Office().calls, IsEmpty());
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Entry(kPackage, "1", "1ADDSECTION"), "");
}

TEST_F(ExtractionTest, NoOpenDocument_SavesTheStateOnly) {
  StartWithWord();
  OpenSession();
  Office().raisesCloseEvents = false;
  ASSERT_TRUE(session_->CloseEditor());
  EXPECT_TRUE(session_->docDst() != nullptr);
  const auto other = std::make_shared<CEditor>();
  Office().raisesCloseEvents = true;
  Office().RaiseAt(R"(group \pkg\dst\text.doc Open(\pkg\dst\text.doc, 0))");
  EXPECT_FALSE(other->OpenForTranslation("DOC1"));
  EXPECT_FALSE(other->ExtractHyperlinksAndTitle());
}

// --- from the file

TEST_F(ExtractionTest, Html_ParsesTheFileWithItsTwoFixedArguments) {
  OpenHtml();
  parser_->title = "Page";
  parser_->links = {std::string("a.html"), std::string("b.html"), std::string("a.html")};
  Save();
  EXPECT_THAT(parser_->calls, ElementsAre(R"(\pkg\dst\text.html 0 -1)"));
  EXPECT_EQ(Title(), "Page");
  EXPECT_EQ(Links(), "3: a.html b.html a.html ");
  EXPECT_THAT(TraceLines(),
              IsSupersetOf({"CEditor.ExtractHyperlinksAndTitleFromFile: before launching HTML parser",
                            "CEditor.ExtractHyperlinksAndTitleFromFile: after launching HTML parser",
                            "CEditor.ExtractHyperlinksAndTitleFromFile: Retrun: HtmlParser: 'b.html'",
                            "CEditor.ExtractHyperlinksAndTitleFromFile: Retrun Title: HtmlParser: "
                            "'Page'"}));
}

TEST_F(ExtractionTest, Html_NoTitle_KeepsTheDocumentsTitleAndBelievesOneCharacter) {
  OpenHtml();
  Save();
  EXPECT_EQ(Title(), "Styles");
  parser_->title = "x";
  Save();
  EXPECT_EQ(Title(), "x");
}

TEST_F(ExtractionTest, Html_NoLinks_WritesACountOfZero) {
  OpenHtml();
  parser_->links = {std::string("a.html")};
  Save();
  parser_->links.clear();
  Save();
  EXPECT_EQ(Links(), "0: ");
}

TEST_F(ExtractionTest, Html_BadCode_WritesAnEmptyListOverTheLinksAndTheTitleAllTheSame) {
  OpenHtml();
  parser_->links = {std::string("a.html")};
  Save();
  parser_->code = 5;
  parser_->title = "Page";
  Save();
  EXPECT_EQ(Links(), "0: ");
  EXPECT_EQ(Title(), "Page");
  EXPECT_THAT(Protocol(), HasSubstr("Could not read hyperlinks from PXF file"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(ExtractionTest, Html_NoParser_SaysSoInTheProtocolAndSavesTheStateOnly) {
  OpenHtml();
  gEditorQuestions.newHtmlParser = nullptr;
  Save();
  EXPECT_THAT(Protocol(), HasSubstr("Could not start HTML parser"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Entry(kPackage, "1", "1ADDSECTION"), "");
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(ExtractionTest, Html_ParserFails_SaysSoInABoxAndSavesTheStateOnly) {
  OpenHtml();
  for (bool* fails : {&parser_->fails, &parser_->failsAtTitle}) {
    Boxes().Forget();
    *fails = true;
    Save();
    EXPECT_THAT(Boxes().Texts(),
                ElementsAre(HasSubstr("Hyperlinks could not be extracted from translated file")));
    EXPECT_THAT(TraceLines(), Contains("CEditor.ExtractHyperlinksAndTitleFromFile: HTML parser failure"));
    EXPECT_EQ(Entry(kPackage, "1", "1ADDSECTION"), "");
    EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
    EXPECT_EQ(Err.Number, 0);
  }
}

TEST_F(ExtractionTest, Html_ClosedDuringTheBoxOfAFailingParser_KeepsTheChange) {
  OpenHtml();
  parser_->fails = true;
  Boxes().WhileNextNotice([this] { Office().UserCloses(translation_); });
  Save();
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_FALSE(session_->IsOpen());
}

TEST_F(ExtractionTest, PlainHtm_IsReadFromItsFileThoughNoEditorIsStarted) {
  StartWith("", "HTM");
  gEditorQuestions.newHtmlParser = [this] { return parser_; };
  gLoios->Item("DOC1")->ContentEditTransition();
  EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
  parser_->links = {std::string("a.html")};
  session_->DoSave();
  EXPECT_EQ(Links(), "1: a.html ");
  EXPECT_THAT(Office().calls, IsEmpty());
}

}  // namespace
}  // namespace qb
