#include <gmock/gmock.h>

#include <functional>

#include "foundation/FoundationState.h"
#include "foundation/modMultiLanguage.h"
#include "runtime/RuntimeError.h"
#include "ui/KeyPart.h"
#include "ui/frmAttributeTranslation.h"
#include "ui/frmOptions.h"
#include "ui/frmTranslateTitle.h"

namespace qb {
namespace {

/// A text of a form, by the path of what shows it.
template <class AnyForm>
struct Row {
  const char* path;
  int number;
  const char* text;
  std::function<Property<std::string>&(AnyForm&)> target;
};

class DialogWordingTest : public ::testing::Test {
 protected:
  ~DialogWordingTest() override { ResetFoundationState(); }

  /// Checks that the form shows each text in English, and finds each translation by its key, for both kinds
  /// of packages.
  template <class AnyForm>
  void Check(const std::string& module, const std::vector<Row<AnyForm>>& rows) {
    AnyForm form;
    form.QBL_InitLText();
    for (const auto& row : rows) EXPECT_EQ(row.target(form).Get(), row.text) << row.path;
    gLanguageTexts = std::make_unique<std::unordered_map<std::string, std::string>>();
    for (const auto& row : rows) {
      gLanguageTexts->emplace(
          fmt::format("QB.QBTRANSLAT.{}.000.{}.C.{:05}", module, KeyPart(row.path), row.number),
          fmt::format("text {}", row.number));
    }
    form.QBL_InitLText_Localization();
    for (const auto& row : rows)
      EXPECT_EQ(row.target(form).Get(), fmt::format("text {}", row.number)) << row.path;
  }
};

TEST_F(DialogWordingTest, TranslateTitle_TextsAndKeys) {
  using F = frmTranslateTitle;
  Check<F>("FRMTRANSLATE",
           {{"frmTranslateTitle.Caption", 1, "Translate Title", [](F& f) -> auto& { return f.Caption;
}
}  // namespace
, {"btnCancel.Caption", 2, "Cancel", [](F& f) -> auto& {return f.btnCancel.Caption;
}  // namespace qb
}
, {"btnOkay.Caption", 3, "Ok", [](F& f) -> auto& {return f.btnOkay.Caption;
}
}
, {"Label1.Caption", 4, "Title in the original language:", [](F& f) -> auto& {return f.Label1.Caption;
}
}
, {
  "Label2.Caption", 5, "Please enter the translated title for the Info Object:", [](F & f) -> auto& {
    return f.Label2.Caption;
  }
}
});
}

TEST_F(DialogWordingTest, AttributeTranslation_TextsAndKeys) {
  using F = frmAttributeTranslation;
  Check<F>("FRMATTRIBUTE",
           {{"frmAttributeTranslation.Caption", 1, "Quillbank Translator: Translate Attributes",
             [](F& f) -> auto& { return f.Caption;
}
}
, {"btnCopySource.Caption", 2, "Copy Source Language Text", [](F& f) -> auto& {return f.btnCopySource.Caption;
}
}
, {"btnReusePreviousTranslation.Caption", 3, "Reuse Previous Translation",
   [](F& f) -> auto& {return f.btnReusePreviousTranslation.Caption;
}
}
, {"btnCancel.Caption", 4, "Cancel", [](F& f) -> auto& {return f.btnCancel.Caption;
}
}
, {"btnOK.Caption", 5, "OK", [](F& f) -> auto& {return f.btnOK.Caption;
}
}
, {"lblPreviousTranslation.Caption", 6,
   "Previous Translation:", [](F& f) -> auto& {return f.lblPreviousTranslation.Caption;
}
}
, {"lblTargetValue.Caption", 7,
   "Value in Target Language:", [](F& f) -> auto& {return f.lblTargetValue.Caption;
}
}
, {"lblSourceValue.Caption", 8,
   "Value in Source Language:", [](F& f) -> auto& {return f.lblSourceValue.Caption;
}
}
, {
  "lblAttributeName.Caption", 9, "Attribute Name:", [](F & f) -> auto& {
    return f.lblAttributeName.Caption;
  }
}
});
}

TEST_F(DialogWordingTest, Options_TextsAndKeys) {
  using F = frmOptions;
  Check<F>(
      "FRMOPTIONS",
      {{"frmOptions.Caption", 1, "ORB Quillbank Translator: Options", [](F& f) -> auto& { return f.Caption;
}
}
, {"fraUserInterface.Caption", 2, "User Interface Settings",
   [](F& f) -> auto& {return f.fraUserInterface.Caption;
}
}
, {"lblRefreshInterval.Caption", 3, "Refresh after", [](F& f) -> auto& {return f.lblRefreshInterval.Caption;
}
}
, {"lblMs.Caption", 4, "ms", [](F& f) -> auto& {return f.lblMs.Caption;
}
}
, {"lblLanguage.Caption", 5, "Language", [](F& f) -> auto& {return f.lblLanguage.Caption;
}
}
, {"fraU.Caption", 6, "User", [](F& f) -> auto& {return f.fraU.Caption;
}
}
, {"lblUserID.Caption", 7, "User ID", [](F& f) -> auto& {return f.lblUserID.Caption;
}
}
, {"fraSample4.Caption", 8, "Sample 4", [](F& f) -> auto& {return f.fraSample4.Caption;
}
}
, {"fraSample3.Caption", 9, "Sample 3", [](F& f) -> auto& {return f.fraSample3.Caption;
}
}
, {"fraSample2.Caption", 10, "Sample 2", [](F& f) -> auto& {return f.fraSample2.Caption;
}
}
, {"cmdApply.Caption", 11, "Apply", [](F& f) -> auto& {return f.cmdApply.Caption;
}
}
, {"cmdCancel.Caption", 12, "Cancel", [](F& f) -> auto& {return f.cmdCancel.Caption;
}
}
, {"cmdOK.Caption", 13, "OK", [](F& f) -> auto& {return f.cmdOK.Caption;
}
}
, {"tbsOptions.Tabs(1).Caption", 14, "General", [](F& f) -> auto& {return f.tbsOptions.Tabs(1).Caption;
}
}
, {"tbsOptions.Tabs(1).ToolTipText", 15, "Set general options",
   [](F& f) -> auto& {return f.tbsOptions.Tabs(1).ToolTipText;
}
}
, {
  "Label1.Caption", 16, "Language", [](F & f) -> auto& {
    return f.Label1.Caption;
  }
}
});
}

TEST_F(DialogWordingTest, Dialogs_EnterAndEscapeHaveTheirButtons) {
  const frmTranslateTitle title;
  EXPECT_TRUE(title.btnOkay.Default);
  EXPECT_TRUE(title.btnCancel.Cancel);
  const frmOptions options;
  EXPECT_TRUE(options.cmdOK.Default);
  EXPECT_TRUE(options.cmdCancel.Cancel);
  const frmAttributeTranslation attributes;
  EXPECT_TRUE(attributes.btnCancel.Cancel);
}

TEST_F(DialogWordingTest, Options_DesignHasOneTabAndItsPage) {
  frmOptions form;
  EXPECT_EQ(form.tbsOptions.TabCount(), 1);
  EXPECT_TRUE(form.picOptions[0].Visible);
  EXPECT_FALSE(form.picOptions[1].Visible);
  EXPECT_THAT([&] { form.tbsOptions.Tabs(2); }, ::testing::Throws<RuntimeError>(::testing::Property(
                                                    &RuntimeError::Number, failure::kIndexOutOfRange)));
  EXPECT_THROW(form.tbsOptions.Select(0), RuntimeError);
}

}  // namespace
}  // namespace qb
