#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "MockPlatform.h"
#include "foundation/CMessageHandler.h"
#include "foundation/modMultiLanguage.h"
#include "runtime/RuntimeError.h"
#include "support/FaultyFileSystem.h"
#include "support/Links.h"
#include "support/TestPlatform.h"

namespace qb {
namespace {

using ::testing::_;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::NiceMock;
using ::testing::Return;

constexpr std::string_view kProtocol = R"(\pkg\Protocol.txt)";

class CMessageHandlerTest : public PlatformTest {
 protected:
  CMessageHandlerTest() {
    MakeFolder(R"(\pkg)");
    gProtocolDirectory.packageExists = [] { return true; };
    gProtocolDirectory.packageDirectory = [this] { return directory_; };
  }

  static std::string Header() { return std::string(79, '=') + "\r\nORB Quillbank Translator 7.1.3\r\n\r\n"; }
  static std::string Footer(int errors) {
    return std::string(79, '-') +
           fmt::format("\r\nApplication finished execution. {} errors occurred.\r\n", errors) +
           std::string(79, '=') + "\r\n\r\n\r\n";
  }
  /// A line of at least 71 columns as the protocol holds it.
  static std::string Line(std::string_view text) { return fmt::format("{:<71}\r\n", text); }

  /// What the protocol holds behind the header.
  std::string Lines() const {
    const std::string bytes = Bytes(kProtocol);
    EXPECT_TRUE(bytes.starts_with(Header()));
    return bytes.substr(std::min(bytes.size(), Header().size()));
  }

  std::string directory_ = R"(\pkg)";
};

TEST_F(CMessageHandlerTest, Creation_WritesTheHeader) {
  const CMessageHandler handler;
  EXPECT_EQ(Bytes(kProtocol), Header());
  EXPECT_EQ(handler.GetNumberOfErrors(), 0);
}

TEST_F(CMessageHandlerTest, Destruction_WritesTheFooterWithTheErrors) {
  {
    CMessageHandler handler;
    handler.Message("x", 2, false, false);
    handler.Message("y", 2, false, false);
    handler.Message("z", 1, false, false);
    Err.Set(RuntimeError(5));
  }
  EXPECT_EQ(Lines(), Line("#1  Error           x") + Line("#2  Error           y") +
                         Line("#3  Warning         z") + Footer(2));
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(CMessageHandlerTest, Protocol_ExistingFile_IsAppendedTo) {
  Write(kProtocol, "before\r\n");
  { const CMessageHandler handler; }
  EXPECT_EQ(Bytes(kProtocol), "before\r\n" + Header() + Footer(0));
}

struct LevelCase {
  std::int16_t level;
  std::string word;
  int style;
  int errors;
};

TEST_F(CMessageHandlerTest, Message_Level_Table) {
  const std::vector<LevelCase> table = {
      {0, "Message", 64, 0}, {1, "Warning", 48, 0}, {2, "Error", 16, 1},
      {3, "Error", 16, 0},   {-1, "Error", 16, 0},
  };
  for (const LevelCase& row : table) {
    CMessageHandler handler;
    Boxes().Forget();
    handler.Message("text", row.level, true, false);
    EXPECT_EQ(handler.GetNumberOfErrors(), row.errors) << row.level;
    ASSERT_EQ(Boxes().Shown().size(), 1U);
    EXPECT_EQ(Boxes().Shown()[0].style, row.style) << row.level;
    EXPECT_EQ(Boxes().Shown()[0].title, std::nullopt);
    EXPECT_EQ(Boxes().Shown()[0].text, fmt::format(" {:<16}{:<51}", row.word, "text")) << row.level;
    EXPECT_TRUE(Bytes(kProtocol).ends_with(Line(fmt::format("#1  {:<16}text", row.word)))) << row.level;
  }
}

TEST_F(CMessageHandlerTest, Message_NumberSeven_IsFollowedByTwoBlanks) {
  CMessageHandler handler;
  for (int i = 1; i < 7; ++i) handler.Message("x", 0, false, false);
  handler.Message("Document is already open", 1, true, false);
  EXPECT_TRUE(Lines().ends_with(Line("#7  Warning         Document is already open")));
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(fmt::format(" {:<67}", "Warning         Document is already open")));
}

TEST_F(CMessageHandlerTest, Message_NumberColumn_Table) {
  CMessageHandler handler;
  const std::vector<std::pair<int, std::string>> table = {{9, "#9  Message "},
                                                          {10, "#10 Message "},
                                                          {99, "#99 Message "},
                                                          {100, "#100 Message "},
                                                          {1000, "#1000 Message "}};
  int sent = 0;
  for (const auto& [number, start] : table) {
    for (; sent < number - 1; ++sent) handler.Message("x", 0, false, false);
    handler.Message("last", 0, true, false);
    ++sent;
    EXPECT_THAT(Bytes(kProtocol), HasSubstr("\r\n" + start)) << number;
  }
  // The blanks that pad the number stay in front of the box's text, all but the first.
  const std::string rest = fmt::format("{:<16}{:<51}", "Message", "last");
  EXPECT_THAT(Boxes().Texts(), ElementsAre(' ' + rest, rest, rest, rest, rest));
}

TEST_F(CMessageHandlerTest, Message_TextOf51CharactersOrMore_IsKeptWholeWithOneBlank) {
  CMessageHandler handler;
  handler.Message(std::string(50, 'a'), 0, false, false);
  handler.Message(std::string(51, 'b'), 0, false, false);
  handler.Message(std::string(80, 'c'), 0, false, false);
  EXPECT_EQ(Lines(), "#1  Message         " + std::string(50, 'a') + " \r\n" + "#2  Message         " +
                         std::string(51, 'b') + " \r\n" + "#3  Message         " + std::string(80, 'c') +
                         " \r\n");
}

TEST_F(CMessageHandlerTest, Message_Umlauts_CountAsOneColumnAndGoOutInTheSystemsCodePage) {
  CMessageHandler handler;
  handler.Message("größer", 0, false, false);
  TextCodec& codec = *ThePlatform().codec;
  EXPECT_EQ(Lines(), codec.Encode("#1  Message         größer" + std::string(45, ' ') + "\r\n",
                                  codec.SystemCodePage()));
}

TEST_F(CMessageHandlerTest, Message_Wording_IsThatOfTheInterfaceLanguage) {
  gLanguageTexts = std::make_unique<std::unordered_map<std::string, std::string>>();
  (*gLanguageTexts)["QB.QBTRANSLAT.CMESSAGEHAND.000.MESSAGE.T.00004"] = "Meldung";
  (*gLanguageTexts)["QB.QBTRANSLAT.CMESSAGEHAND.000.MESSAGE.T.00005"] = "Warnung";
  (*gLanguageTexts)["QB.QBTRANSLAT.CMESSAGEHAND.000.MESSAGE.T.00006"] = "Fehlermeldung, lang";
  (*gLanguageTexts)["QB.QBTRANSLAT.CMESSAGEHAND.000.MESSAGE.T.00003"] = "Interner Fehler";
  (*gLanguageTexts)["QB.QBTRANSLAT.CMESSAGEHAND.000.CLASS_TERMINATE.T.00001"] = "Ende.";
  (*gLanguageTexts)["QB.QBTRANSLAT.CMESSAGEHAND.000.CLASS_TERMINATE.T.00002"] = "Fehler.";
  {
    CMessageHandler handler;
    handler.Message("a", 0, false, false);
    handler.Message("b", 1, false, false);
    handler.Message("c", 3, false, false);
    handler.Message("", 1, false, false);
  }
  EXPECT_EQ(Lines(), Line("#1  Meldung         a") + Line("#2  Warnung         b") +
                         fmt::format("#3  Fehlermeldung, lang {:<51}\r\n", "c") +
                         Line("#4  Interner Fehler 0") + std::string(79, '-') + "\r\nEnde. 0 Fehler.\r\n" +
                         std::string(79, '=') + "\r\n\r\n\r\n");
}

struct PendingCase {
  long number;
  std::string description;
  std::string source;
  std::string text;
};

TEST_F(CMessageHandlerTest, Message_EmptyText_ReportsThePendingError) {
  const std::vector<PendingCase> table = {
      {0, "", "", "0"},
      {91, "Object variable not set", "", "91: Object variable not set"},
      {91, "Object variable not set", "CState", "91: Object variable not set CState"},
      {-42, "", "CEditor", "-42 CEditor"},
  };
  for (const PendingCase& row : table) {
    CMessageHandler handler;
    Boxes().Forget();
    Err.Number = row.number;
    Err.Description = row.description;
    Err.Source = row.source;
    handler.Message("", 0, true, false);
    const std::string expected = "Internal Error  " + row.text;
    EXPECT_TRUE(Bytes(kProtocol).ends_with(Line("#1  " + expected))) << row.text;
    EXPECT_EQ(Boxes().Shown().at(0).text, fmt::format(" {:<67}", expected));
    EXPECT_EQ(Boxes().Shown().at(0).style, 16);  // whatever the level is
    EXPECT_EQ(Err.Number, 0);
  }
}

TEST_F(CMessageHandlerTest, Message_EmptyTextOfLevel2WithoutPendingError_Reads0AndCountsAsError) {
  CMessageHandler handler;
  handler.Message("", 2, false, false);
  EXPECT_EQ(Lines(), Line("#1  Internal Error  0"));
  EXPECT_EQ(handler.GetNumberOfErrors(), 1);
}

TEST_F(CMessageHandlerTest, Message_TextOfThePendingError_SurvivesItsClearing) {
  CMessageHandler handler;
  Err.Set(RuntimeError(5, {}, "a description too long for any buffer inside the text itself"));
  handler.Message(Err.Description, 2, false, false);
  EXPECT_EQ(Lines(), "#1  Error           a description too long for any buffer inside the text itself \r\n");
}

TEST_F(CMessageHandlerTest, Message_Box_CarriesTheHelpOfThePendingError) {
  CMessageHandler handler;
  Err.Set(RuntimeError(5, {}, {}, 17, "help.chm"));
  handler.Message("x", 2, true, false);
  EXPECT_EQ(Boxes().Shown().at(0).helpFile, "help.chm");
  EXPECT_EQ(Boxes().Shown().at(0).helpContext, 17);
}

TEST_F(CMessageHandlerTest, Message_Question_TakesTheAnswer) {
  CMessageHandler handler;
  for (const auto& [answer, expected] :
       std::vector<std::pair<int, bool>>{{box::kYes, true}, {box::kNo, false}}) {
    Boxes().AnswerNext(answer);
    bool ask = true;
    handler.Message("Really?", 1, true, ask);
    EXPECT_EQ(ask, expected);
    EXPECT_EQ(Boxes().Shown().back().style, 36);
  }
}

TEST_F(CMessageHandlerTest, Message_QuestionNotShown_LeavesTheVariable) {
  CMessageHandler handler;
  bool ask = true;
  handler.Message("Really?", 1, false, ask);
  EXPECT_TRUE(ask);
  EXPECT_TRUE(Boxes().Shown().empty());
  EXPECT_EQ(Lines(), Line("#1  Warning         Really?"));
}

TEST_F(CMessageHandlerTest, Message_Line_IsWrittenAfterTheBoxHasClosed) {
  CMessageHandler handler;
  std::string meanwhile;
  Boxes().WhileNextNotice([&] { meanwhile = Lines(); });
  handler.Message("x", 0, true, false);
  EXPECT_EQ(meanwhile, "");
  EXPECT_EQ(Lines(), Line("#1  Message         x"));
}

TEST_F(CMessageHandlerTest, Message_AnotherWhileTheBoxIsUp_KeepsBothLines) {
  CMessageHandler handler;
  Boxes().WhileNextNotice([&] { handler.Message("inner", 0, false, false); });
  handler.Message("outer", 0, true, false);
  EXPECT_EQ(Lines(), Line("#2  Message         inner") + Line("#1  Message         outer"));
}

TEST_F(CMessageHandlerTest, Message_MoreThanACountHolds_StaysAtItsGreatestValue) {
  CMessageHandler handler;
  FaultyFileSystem& files = InstallFaultyFiles(ThePlatform());
  for (const FileOperation operation : {FileOperation::kFind, FileOperation::kResolved, FileOperation::kRead,
                                        FileOperation::kOpenForAppending}) {
    files.Fail(operation, failure::kPathNotFound);
  }
  for (int i = 0; i < 40'000; ++i) handler.Message("x", 2, false, false);
  EXPECT_EQ(handler.GetNumberOfErrors(), 32767);
  files.Heal();
  handler.Message("x", 2, false, false);
  EXPECT_EQ(Lines(), fmt::format("#32767 {:<16}{:<51}\r\n", "Error", "x"));
}

TEST_F(CMessageHandlerTest, Protocol_FollowsThePackage) {
  MakeFolder(R"(\second)");
  CMessageHandler handler;
  directory_ = R"(\second)";
  handler.Message("x", 0, false, false);
  EXPECT_EQ(Bytes(kProtocol), Header());
  EXPECT_EQ(Bytes(R"(\second\Protocol.txt)"), Line("#1  Message         x"));
}

TEST_F(CMessageHandlerTest, Protocol_PackageObjectWithoutFile_StandsInTheRoot) {
  directory_ = "";
  const CMessageHandler handler;
  EXPECT_EQ(Bytes(R"(\Protocol.txt)"), Header());
}

/// Keeps what is written to it.
class WriterToText : public FileWriter {
 public:
  explicit WriterToText(std::string& text) : text_(text) {}
  void Write(std::string_view bytes) override { text_ += bytes; }
  void Flush() override {}

 private:
  std::string& text_;
};

TEST_F(CMessageHandlerTest, Protocol_NoPackageObject_StandsInTheProgramsDirectory) {
  gProtocolDirectory = {};
  std::string written;
  auto& files = Replace<NiceMock<MockFileSystem>>(ThePlatform().files);
  ON_CALL(files, ProgramDirectory()).WillByDefault(Return(R"(\opt\bin)"));
  ON_CALL(files, Resolved(_)).WillByDefault([](std::string_view path) {
    return path == R"(\opt\bin\.\Protocol.txt)" ? R"(\opt\bin\Protocol.txt)" : std::string(path);
  });
  ON_CALL(files, OpenForAppending(std::string_view(R"(\opt\bin\.\Protocol.txt)")))
      .WillByDefault([&](std::string_view) { return std::make_unique<WriterToText>(written); });
  { const CMessageHandler handler; }
  EXPECT_EQ(written, Header() + Footer(0));
  written.clear();
  gProtocolDirectory.packageExists = [] { return false; };
  { const CMessageHandler handler; }
  EXPECT_EQ(written, Header() + Footer(0));
}

TEST_F(CMessageHandlerTest, Protocol_UnwritablePlace_LosesTheLineWithoutAWord) {
  directory_ = R"(\none)";
  CMessageHandler handler;
  Err.Set(RuntimeError(5));
  EXPECT_NO_THROW(handler.Message("x", 2, true, false));
  EXPECT_EQ(Boxes().Shown().size(), 1U);
  EXPECT_EQ(Err.Number, 0);
  EXPECT_FALSE(Exists(R"(\none)"));
}

TEST_F(CMessageHandlerTest, Protocol_LinkToAnotherPlace_IsNotWrittenThrough) {
  Write(R"(\elsewhere\victim.txt)", "precious");
  if (!MadeLink(Native(R"(\elsewhere\victim.txt)"), Native(kProtocol))) GTEST_SKIP() << kNoLinks;
  { const CMessageHandler handler; }
  EXPECT_EQ(Bytes(R"(\elsewhere\victim.txt)"), "precious");
}

TEST_F(CMessageHandlerTest, Protocol_LinkToAnotherFileOfTheFolder_IsNotWrittenThrough) {
  Write(R"(\pkg\Trans.pxf)", "[GLOBAL]\r\n");
  if (!MadeLink("Trans.pxf", Native(kProtocol))) GTEST_SKIP() << kNoLinks;
  { const CMessageHandler handler; }
  EXPECT_EQ(Bytes(R"(\pkg\Trans.pxf)"), "[GLOBAL]\r\n");
}

TEST_F(CMessageHandlerTest, Protocol_FolderThatIsALink_IsWritten) {
  if (!MadeFolderLink(Native(R"(\pkg)"), Native(R"(\link)"))) GTEST_SKIP() << kNoLinks;
  directory_ = R"(\link)";
  const CMessageHandler handler;
  EXPECT_EQ(Bytes(kProtocol), Header());
}

TEST_F(CMessageHandlerTest, Protocol_OtherSpelling_IsFoundRegardlessOfCase) {
  Write(R"(\pkg\PROTOCOL.TXT)", "");
  directory_ = R"(\PKG)";
  const CMessageHandler handler;
  EXPECT_EQ(Bytes(R"(\pkg\PROTOCOL.TXT)"), Header());
}

TEST_F(CMessageHandlerTest, Replacement_NewHeaderStandsBeforeTheOldFooter) {
  gMessageHandler = std::make_unique<CMessageHandler>();
  gMessageHandler->Message("old", 2, false, false);
  MakeFolder(R"(\second)");
  directory_ = R"(\second)";
  gMessageHandler = std::make_unique<CMessageHandler>();
  gMessageHandler->Message("new", 0, false, false);
  EXPECT_EQ(Bytes(R"(\second\Protocol.txt)"), Header() + Footer(1) + Line("#1  Message         new"));
}

}  // namespace
}  // namespace qb
