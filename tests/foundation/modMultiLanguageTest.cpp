#include <fmt/format.h>
#include <gtest/gtest.h>

#include <vector>

#include "MockPlatform.h"
#include "foundation/EventLoop.h"
#include "foundation/grvdRegistry.h"
#include "foundation/modMultiLanguage.h"
#include "runtime/RuntimeError.h"
#include "support/TestPlatform.h"

namespace qb {
namespace {

using ::testing::_;
using ::testing::ElementsAre;
using ::testing::NiceMock;
using ::testing::Return;
using ::testing::Throw;

constexpr std::string_view kShowKey = "QB.QBTRANSLAT.HELPMOD.000.QBTSHOW.T.00012|Show";

class modMultiLanguageTest : public PlatformTest {
 protected:
  static void Load(std::string_view language) {
    QBL_InitLanguage(R"(\app)", "QuillbankTranslator", "7.1.3", language);
  }

  /// Loads a German language file with these bytes.
  void LoadGerman(std::string_view bytes) {
    Write(R"(\app\de\QuillbankTranslator.lan)", bytes);
    Load("de");
  }
};

TEST_F(modMultiLanguageTest, InitLanguage_NoFile_AllTextsAreEnglishAndNobodyIsTold) {
  Load("de");
  EXPECT_EQ(gLanguageFile, R"(\app\lan\QuillbankTranslator.en)");
  ASSERT_NE(gLanguageTexts, nullptr);
  EXPECT_TRUE(gLanguageTexts->empty());
  EXPECT_EQ(QBL_LText(kShowKey), "Show");
  EXPECT_TRUE(Boxes().Shown().empty());
}

TEST_F(modMultiLanguageTest, InitLanguage_FileOfTheLanguage_IsPreferred) {
  Write(R"(\app\lan\QuillbankTranslator.en)", "QB.QBTRANSLAT.HELPMOD.000.QBTSHOW.T.00012\t\tfallback\r\n");
  LoadGerman("QB.QBTRANSLAT.HELPMOD.000.QBTSHOW.T.00012\tShow\tZeigen\r\n");
  EXPECT_EQ(gLanguageFile, R"(\app\de\QuillbankTranslator.lan)");
  EXPECT_EQ(QBL_LText(kShowKey), "Zeigen");
}

TEST_F(modMultiLanguageTest, InitLanguage_OnlyTheFallback_IsReadWhateverItsLanguage) {
  Write(R"(\app\lan\QuillbankTranslator.en)", "QB.QBTRANSLAT.HELPMOD.000.QBTSHOW.T.00012\t\tZeigen\r\n");
  Load("de");
  EXPECT_EQ(gLanguageFile, R"(\app\lan\QuillbankTranslator.en)");
  EXPECT_EQ(QBL_LText(kShowKey), "Zeigen");
}

TEST_F(modMultiLanguageTest, InitLanguage_UpperCaseLanguage_IsLowered) {
  Load("DE");
  EXPECT_EQ(gLanguageFile, R"(\app\lan\QuillbankTranslator.en)");
  Write(R"(\app\ja\QuillbankTranslator.lan)", "");
  Load("JA");
  EXPECT_EQ(gLanguageFile, R"(\app\ja\QuillbankTranslator.lan)");
}

TEST_F(modMultiLanguageTest, InitLanguage_BlanksAroundTheBaseName_StayInTheFallbackOnly) {
  Write(R"(\app\de\Name.lan)", "K\t\tfirst\r\n");
  QBL_InitLanguage(R"(\app\)", " Name.old ", "", "de");
  EXPECT_EQ(gLanguageFile, R"(\app\de\Name.lan)");
  QBL_InitLanguage(R"(\app\)", " Name ", "", "fr");
  EXPECT_EQ(gLanguageFile, R"(\app\lan\ Name .en)");
}

TEST_F(modMultiLanguageTest, InitLanguage_FolderOfTheFilesName_IsNoFile) {
  MakeFolder(R"(\app\de\QuillbankTranslator.lan)");
  Load("de");
  EXPECT_EQ(gLanguageFile, R"(\app\lan\QuillbankTranslator.en)");
}

TEST_F(modMultiLanguageTest, InitLanguage_TextBehindSecondTab_MayHoldFurtherTabs) {
  LoadGerman("key\tEnglish\tDeutsch\tmehr\r\n");
  EXPECT_EQ(QBL_LText("key|English"), "Deutsch\tmehr");
}

TEST_F(modMultiLanguageTest, InitLanguage_LineWithFewerThanTwoTabs_IsSkipped) {
  LoadGerman("one\tEnglish\r\ntwo\r\n\r\nthree\t\tdrei\r\n");
  EXPECT_EQ(gLanguageTexts->size(), 1U);
  EXPECT_EQ(QBL_LText("one|English"), "English");
  EXPECT_EQ(QBL_LText("three|three"), "drei");
}

TEST_F(modMultiLanguageTest, InitLanguage_SameKeyTwice_FirstLineWins) {
  LoadGerman("key\t\terster\r\nKEY\t\tzweiter\r\n");
  EXPECT_EQ(QBL_LText("key|first"), "erster");
}

TEST_F(modMultiLanguageTest, InitLanguage_LineEnds_AreCrLfCrOrLfAndTheLastMayLackOne) {
  LoadGerman("a\t\t1\r\nb\t\t2\nc\t\t3\rd\t\t4");
  EXPECT_EQ(QBL_LText("a"), "1");
  EXPECT_EQ(QBL_LText("b"), "2");
  EXPECT_EQ(QBL_LText("c"), "3");
  EXPECT_EQ(QBL_LText("d"), "4");
}

TEST_F(modMultiLanguageTest, InitLanguage_SecondLoad_ReplacesTheTableWhole) {
  LoadGerman("key\t\talt\r\n");
  Load("fr");
  EXPECT_EQ(QBL_LText("key|English"), "English");
}

TEST_F(modMultiLanguageTest, InitLanguage_CodePage_FollowsTheLanguage) {
  LoadGerman(
      "key\t\t\xFC"
      "ber\r\n");
  EXPECT_EQ(QBL_LText("key"), "über");
  Write(R"(\app\ru\QuillbankTranslator.lan)", "key\t\t\xE0\r\n");
  Load("ru");
  EXPECT_EQ(QBL_LText("key"), "а");
  Write(R"(\app\ja\QuillbankTranslator.lan)", "key\t\t\x83\x5C\x83\x74\x83\x67\r\n");
  Load("ja");
  EXPECT_EQ(QBL_LText("key"), "ソフト");
}

TEST_F(modMultiLanguageTest, InitLanguage_SettingAnsiCodePage_Overrides) {
  SetRegistryString(Hive::kCurrentUser, kSettingsKey, "AnsiCodePage", "1251");
  LoadGerman("key\t\t\xE0\r\n");
  EXPECT_EQ(QBL_LText("key"), "а");
}

TEST_F(modMultiLanguageTest, InitLanguage_SettingThatIsNoCodePage_KeepsTheLanguages) {
  SetRegistryString(Hive::kCurrentUser, kSettingsKey, "AnsiCodePage", "none");
  LoadGerman("key\t\t\xE0\r\n");
  EXPECT_EQ(QBL_LText("key"), "à");
}

TEST_F(modMultiLanguageTest, InitLanguage_AnyBytes_LeaveAWorkingTable) {
  std::string bytes;
  for (int i = 0; i < 65536; ++i) bytes += static_cast<char>((i * 7 + i / 256) % 256);
  LoadGerman("first\t\terster\r\n" + bytes + "\r\nlast\t\tletzter");
  EXPECT_EQ(QBL_LText("first"), "erster");
  EXPECT_EQ(QBL_LText("last"), "letzter");
  EXPECT_TRUE(Boxes().Shown().empty());
}

TEST_F(modMultiLanguageTest, InitLanguage_PointerAndEvents_ComeBeforeTheTableIsReplaced) {
  LoadGerman("key\t\talt\r\n");
  Pointer().shapes.clear();
  std::vector<std::string> texts;
  gProcessPendingEvents = [&] {
    EXPECT_THAT(Pointer().shapes, ElementsAre(MousePointer::kHourglass));
    texts.push_back(QBL_LText("key|English"));
  };
  Load("fr");
  EXPECT_THAT(texts, ElementsAre("alt"));
  EXPECT_THAT(Pointer().shapes, ElementsAre(MousePointer::kHourglass, MousePointer::kDefault));
}

TEST_F(modMultiLanguageTest, InitLanguage_UnreadableFile_LeavesEnglishAndRestoresThePointer) {
  auto& files = Replace<NiceMock<MockFileSystem>>(ThePlatform().files);
  ON_CALL(files, Search(_, _)).WillByDefault(Return(std::vector<std::string>{"QuillbankTranslator.lan"}));
  ON_CALL(files, Read(_)).WillByDefault(Throw(RuntimeError(failure::kPermissionDenied)));
  Load("de");
  EXPECT_EQ(QBL_LText(kShowKey), "Show");
  EXPECT_EQ(Err.Number, 0);
  EXPECT_TRUE(Boxes().Shown().empty());
  EXPECT_THAT(Pointer().shapes, ElementsAre(MousePointer::kHourglass, MousePointer::kDefault));
}

TEST_F(modMultiLanguageTest, LText_KeyOfAnotherCase_IsFound) {
  LoadGerman("qb.qbtranslat.helpmod.000.qbtshow.t.00012\t\tZeigen\r\n");
  EXPECT_EQ(QBL_LText(kShowKey), "Zeigen");
}

TEST_F(modMultiLanguageTest, LText_EmptyEntry_GivesEnglish) {
  LoadGerman("QB.QBTRANSLAT.HELPMOD.000.QBTSHOW.T.00012\tShow\t\r\n");
  EXPECT_EQ(QBL_LText(kShowKey), "Show");
}

TEST(modMultiLanguage, LText_NoTable_GivesTheEnglishTextAsItStands) {
  EXPECT_EQ(QBL_LText("KEY| two  blanks "), " two  blanks ");
  EXPECT_EQ(QBL_LText("KEY| Files |"), " Files |");
  EXPECT_EQ(QBL_LText("KEY|"), "");
  EXPECT_EQ(QBL_LText("KEY"), "");
  EXPECT_EQ(QBL_LText(""), "");
}

TEST_F(modMultiLanguageTest, LText_NoBarAndNoEntry_IsEmpty) {
  Load("de");
  EXPECT_EQ(QBL_LText("KEY"), "");
}

TEST_F(modMultiLanguageTest, LText_AbsentKey_ClearsThePendingError) {
  Err.Set(RuntimeError(53));
  QBL_LText("KEY|x");
  EXPECT_EQ(Err.Number, 0);
}

TEST(modMultiLanguage, SplitAt_Table) {
  std::string left;
  std::string right;
  QBL_SplitAt("a|b|c", "|", left, right);
  EXPECT_EQ(left, "a");
  EXPECT_EQ(right, "b|c");
  QBL_SplitAt("abc", "|", left, right);
  EXPECT_EQ(left, "abc");
  EXPECT_EQ(right, "");
  QBL_SplitAt("|", "|", left, right);
  EXPECT_EQ(left, "");
  EXPECT_EQ(right, "");
  QBL_SplitAt("a--b-c", "--", left, right);
  EXPECT_EQ(left, "a");
  EXPECT_EQ(right, "b-c");
  left = "x|y";
  QBL_SplitAt(left, "|", left, right);
  EXPECT_EQ(left, "x");
  EXPECT_EQ(right, "y");
}

TEST(modMultiLanguage, JoinPath_Table) {
  EXPECT_EQ(QBL_JoinPath(R"(C:\app\)", R"(\de\x.lan)"), R"(C:\app\de\x.lan)");
  EXPECT_EQ(QBL_JoinPath(R"(C:\app)", R"(\de\x.lan)"), R"(C:\app\de\x.lan)");
  EXPECT_EQ(QBL_JoinPath(R"(C:\app\)", R"(de\x.lan)"), R"(C:\app\de\x.lan)");
  EXPECT_EQ(QBL_JoinPath(R"(C:\app)", R"(de\x.lan)"), R"(C:\app\de\x.lan)");
  EXPECT_EQ(QBL_JoinPath("a/", "b"), R"(a/\b)");
  EXPECT_EQ(QBL_JoinPath("", "x"), "x");
  EXPECT_EQ(QBL_JoinPath("", R"(\x)"), R"(\x)");
  EXPECT_EQ(QBL_JoinPath(R"(x\)", ""), R"(x\)");
  EXPECT_EQ(QBL_JoinPath("", ""), "");
}

TEST(modMultiLanguage, FormatText_Table) {
  EXPECT_EQ(QBL_FormatText("#%1: %2", "5", "text"), "#5: text");
  EXPECT_EQ(QBL_FormatText("%1 %1", "x"), "x %1");
  EXPECT_EQ(QBL_FormatText("%3 %4", "", "", "a", "b"), "a a");
  EXPECT_EQ(QBL_FormatText("%1", "%2", "b"), "b");  // a value with a later placeholder is filled in turn
  EXPECT_EQ(QBL_FormatText("%2 %1", "a", "%1"), "%1 a");  // one with an earlier placeholder is not
  EXPECT_EQ(QBL_FormatText("%1%2%3%4", ""), "");
  EXPECT_EQ(QBL_FormatText("100 %", "x"), "100 %");
}

/// A form that notes every font that it is given; one of its controls may have none.
class RecordingForm : public FormFonts {
 public:
  RecordingForm(std::string name, std::size_t controls) : name_(std::move(name)), controls_(controls) {}

  std::string FormName() const override { return name_; }
  std::size_t ControlCount() const override { return controls_; }
  void SetOwnFont(std::string_view fontName, int characterSet) override {
    calls.push_back(fmt::format("form '{}' {}", fontName, characterSet));
  }
  void SetControlFont(std::size_t index, std::string_view fontName, double points,
                      int characterSet) override {
    if (index == withoutFont) throw RuntimeError(438);
    calls.push_back(fmt::format("{} '{}' {} {}", index, fontName, points, characterSet));
  }

  std::vector<std::string> calls;
  std::size_t withoutFont = 99;

 private:
  std::string name_;
  std::size_t controls_;
};

TEST_F(modMultiLanguageTest, SetFormFont_English_IsTheDialogFont) {
  gInterfaceLanguage = "en";
  RecordingForm form("frmOptions", 2);
  QBL_SetFormFont(form);
  EXPECT_THAT(form.calls,
              ElementsAre("form 'MS Shell Dlg' 1", "0 'MS Shell Dlg' 8.75 1", "1 'MS Shell Dlg' 8.75 1"));
}

TEST_F(modMultiLanguageTest, SetFormFont_Japanese_IsTheEmptyNameInItsCharacterSet) {
  gInterfaceLanguage = "ja";
  RecordingForm form("frmOptions", 2);
  QBL_SetFormFont(form);
  EXPECT_THAT(form.calls, ElementsAre("form '' 128", "0 '' 8.75 128", "1 '' 8.75 128"));
}

TEST_F(modMultiLanguageTest, SetFormFont_OneControlOrNone_ChangesNothing) {
  RecordingForm one("frmOptions", 1);
  QBL_SetFormFont(one);
  EXPECT_TRUE(one.calls.empty());
  RecordingForm none("frmOptions", 0);
  QBL_SetFormFont(none);
  EXPECT_TRUE(none.calls.empty());
}

TEST_F(modMultiLanguageTest, SetFormFont_Splash_KeepsItsFonts) {
  RecordingForm form("frmSplash", 5);
  QBL_SetFormFont(form);
  EXPECT_TRUE(form.calls.empty());
}

TEST_F(modMultiLanguageTest, SetFormFont_ControlWithoutFont_IsPassedOver) {
  RecordingForm form("frmOptions", 3);
  form.withoutFont = 1;
  QBL_SetFormFont(form);
  EXPECT_THAT(form.calls,
              ElementsAre("form 'MS Shell Dlg' 1", "0 'MS Shell Dlg' 8.75 1", "2 'MS Shell Dlg' 8.75 1"));
  EXPECT_EQ(Err.Number, 0);
}

}  // namespace
}  // namespace qb
