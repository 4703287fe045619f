#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "foundation/modMultiLanguage.h"
#include "runtime/Text.h"
#include "support/TestPlatform.h"
#include "ui/controls/MenuItem.h"
#include "ui/frmAbout.h"
#include "ui/frmContextMenu.h"
#include "ui/frmQBTranslator.h"

namespace qb {
namespace {

std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

struct Language {
  const char* code;
  const char* file;  ///< from the directory of the programs
};

void PrintTo(const Language& language, std::ostream* out) {
  *out << language.code;
}

/// The program with a language file that the build has made.
class SpokenLanguageTest : public PlatformTest {
 protected:
  void Speak(const std::string& language, const std::string& file) {
    Write(R"(\app\)" + ReplaceFirst(file, "/", R"(\)"), BytesOf(std::filesystem::path(QB_LANGUAGES) / file));
    gInterfaceLanguage = language;
    QBL_InitLanguage(R"(\app)", "QuillbankTranslator", "", language);
  }
};

class LanguageFilesTest : public SpokenLanguageTest, public ::testing::WithParamInterface<Language> {
 protected:
  LanguageFilesTest() { Speak(GetParam().code, GetParam().file); }

  static std::string Source() {
    return BytesOf(std::filesystem::path(QB_LANGUAGE_SOURCES) / (std::string(GetParam().code) + ".txt"));
  }
};

/// The access key of a caption, lower case; empty if it has none.
std::string AccessKey(const std::string& caption) {
  const std::size_t mark = caption.find('&');
  return mark == std::string::npos
             ? ""
             : LowerCase(FirstCharacters(std::string_view(caption).substr(mark + 1), 1));
}

void ExpectOwnAccessKeys(const std::string& menu, const std::vector<MenuItem*>& entries) {
  std::map<std::string, std::string> owners;
  for (const MenuItem* entry : entries) {
    const std::string caption = entry->Caption;
    const std::string key = AccessKey(caption);
    if (!key.empty()) {
      const auto [owner, isFirst] = owners.emplace(key, caption);
      EXPECT_TRUE(isFirst) << "In " << menu << ": '" << owner->second << "' and '" << caption << "'";
    }
    ExpectOwnAccessKeys(caption, entry->Entries());
  }
}

TEST_P(LanguageFilesTest, EveryTextArrivesAsItWasWritten) {
  std::size_t count = 0;
  const std::string source = Source();
  for (std::size_t at = 0; at < source.size();) {
    const std::size_t end = source.find('\n', at);
    const std::string line = source.substr(at, end - at);
    at = end + 1;
    std::string key;
    std::string rest;
    std::string english;
    std::string text;
    QBL_SplitAt(line, "\t", key, rest);
    QBL_SplitAt(rest, "\t", english, text);
    EXPECT_EQ(QBL_LText(key), text) << key;
    ++count;
  }
  EXPECT_EQ(gLanguageTexts->size(), count);
}

TEST_P(LanguageFilesTest, NoAccessKeyStandsTwiceInAMenu) {
  frmQBTranslator window;
  frmContextMenu contextMenu;
  for (const bool localization : {false, true}) {
    for (Form* form : {static_cast<Form*>(&window), static_cast<Form*>(&contextMenu)}) {
      localization ? form->QBL_InitLText_Localization() : form->QBL_InitLText();
    }
    ExpectOwnAccessKeys("the menu bar", window.MenuBar());
    ExpectOwnAccessKeys("the context menu", contextMenu.mnuContextMenu.Entries());
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageFilesTest,
                         ::testing::Values(Language{"en", "lan/QuillbankTranslator.en"},
                                           Language{"de", "de/QuillbankTranslator.lan"},
                                           Language{"ja", "ja/QuillbankTranslator.lan"}),
                         [](const auto& test) { return std::string(test.param.code); });

TEST_F(SpokenLanguageTest, FormsSpeakGerman) {
  Speak("de", "de/QuillbankTranslator.lan");
  frmQBTranslator window;
  window.QBL_InitLText();
  EXPECT_EQ(window.mnuFile.Caption.Get(), "&Datei");
  EXPECT_EQ(window.mniToBeTranslated.Caption.Get(), "in Übersetzung");
  window.QBL_InitLText_Localization();
  EXPECT_EQ(window.mniToBeTranslated.Caption.Get(), "zu lokalisieren");
}

TEST_F(SpokenLanguageTest, FormsSpeakJapanese) {
  Speak("ja", "ja/QuillbankTranslator.lan");
  frmQBTranslator window;
  window.QBL_InitLText();
  EXPECT_EQ(window.mnuFile.Caption.Get(), "ファイル(&F)");
  EXPECT_EQ(window.mniCompleted.Caption.Get(), "完了");
}

TEST_F(SpokenLanguageTest, LanguageWithoutAFile_TakesTheEnglishOne) {
  Speak("fr", "lan/QuillbankTranslator.en");
  EXPECT_EQ(gLanguageFile, R"(\app\lan\QuillbankTranslator.en)");
  frmAbout about;
  about.QBL_InitLText();
  EXPECT_EQ(about.cmdSysInfo.Caption.Get(), "&System Info...");
}

}  // namespace
}  // namespace qb
