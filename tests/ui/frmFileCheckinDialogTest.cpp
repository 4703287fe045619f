#include <gmock/gmock.h>

#include "foundation/FoundationState.h"
#include "ui/frmFileCheckinDialog.h"

namespace qb {
namespace {

using ::testing::ElementsAre;

class frmFileCheckinDialogTest : public ::testing::Test {
 protected:
  ~frmFileCheckinDialogTest() override { ResetFoundationState(); }

  /// Gives every text of the dialog another wording in the language file.
  static void LoadWording() {
    gLanguageTexts = std::make_unique<std::unordered_map<std::string, std::string>>();
    gLanguageTexts->emplace("QB.QBTRANSLAT.FRMFILECHECK.000.FRMFILECHECKIND002758.C.00001", "Übersetzung");
    gLanguageTexts->emplace("QB.QBTRANSLAT.FRMFILECHECK.000.BTNCANCELCAPTIO001670.C.00002", "Abbrechen");
    gLanguageTexts->emplace("QB.QBTRANSLAT.FRMFILECHECK.000.LBLTEXTCAPTION.C.00003", "Es wird kopiert:");
    gLanguageTexts->emplace("QB.QBTRANSLAT.FRMFILECHECK.000.FRMFILECHECKIND002758.C.00004", "Lokalisierung");
  }

  frmFileCheckinDialog form_;
};

TEST_F(frmFileCheckinDialogTest, Controls_AreFour) {
  std::vector<std::string> names;
  for (const Control* control : form_.Controls()) names.push_back(control->Name());
  EXPECT_THAT(names, ElementsAre("lblText", "ctlCurrentFile", "ctlProgressBar", "btnCancel"));
  EXPECT_EQ(form_.FormName(), "frmFileCheckinDialog");
}

TEST_F(frmFileCheckinDialogTest, QBL_InitLText_WithoutALanguageFile_IsEnglish) {
  form_.QBL_InitLText();
  EXPECT_EQ(form_.Caption.Get(), "Quillbank Translator: Checkin File As Translation");
  EXPECT_EQ(form_.btnCancel.Caption.Get(), "Cancel");
  EXPECT_EQ(form_.lblText.Caption.Get(), "Copying of documents in progress:");
}

TEST_F(frmFileCheckinDialogTest, QBL_InitLText_Localization_HasItsOwnTitle) {
  form_.QBL_InitLText_Localization();
  EXPECT_EQ(form_.Caption.Get(), "Quillbank Translator: Checkin File As Localized");
  EXPECT_EQ(form_.btnCancel.Caption.Get(), "Cancel");
  EXPECT_EQ(form_.lblText.Caption.Get(), "Copying of documents in progress:");
}

TEST_F(frmFileCheckinDialogTest, Wording_EveryTextIsFoundByItsKey) {
  LoadWording();
  form_.QBL_InitLText();
  EXPECT_EQ(form_.Caption.Get(), "Übersetzung");
  EXPECT_EQ(form_.btnCancel.Caption.Get(), "Abbrechen");
  EXPECT_EQ(form_.lblText.Caption.Get(), "Es wird kopiert:");
  form_.QBL_InitLText_Localization();
  EXPECT_EQ(form_.Caption.Get(), "Lokalisierung");
}

TEST_F(frmFileCheckinDialogTest, Design_NothingCanBeTypedOrPressed) {
  EXPECT_TRUE(form_.ctlCurrentFile.Locked.Get());
  EXPECT_FALSE(form_.btnCancel.Enabled.Get());
}

}  // namespace
}  // namespace qb
