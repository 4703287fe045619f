#include <gmock/gmock.h>

#include "support/WorkflowTest.h"
#include "ui/Toolkit.h"
#include "ui/frmAttributeTranslation.h"

namespace qb {
namespace {

using ::testing::ElementsAre;

class AttributeDialogTest : public WorkflowTest {
 protected:
  AttributeDialogTest() {
    Start();
    Form().Visible = true;
    Kit().calls.clear();
  }

  static frmAttributeTranslation& Form() { return Default<frmAttributeTranslation>(); }
  /// The button that Enter presses.
  static std::string DefaultButton() {
    for (Control* control : Form().Controls()) {
      const auto* button = dynamic_cast<Button*>(control);
      if (button != nullptr && button->Default) return button->Name();
    }
    return {};
  }
  static void Fill(const char* source, const char* target, const char* previous) {
    Form().SourceValue.Text = std::string(source);
    Form().TargetValue.Text = std::string(target);
    Form().PreviousTranslation.Text = std::string(previous);
  }
};

TEST_F(AttributeDialogTest, Load_EmptiesTheFieldsAndMakesTheFillingButtonTheDefault) {
  frmAttributeTranslation form;
  for (TextBox* field :
       {&form.AttributeName, &form.SourceValue, &form.TargetValue, &form.PreviousTranslation}) {
    field->Text = std::string("left over");
  }
  TheForms().Load(form);
  for (TextBox* field :
       {&form.AttributeName, &form.SourceValue, &form.TargetValue, &form.PreviousTranslation}) {
    EXPECT_EQ(field->Text.Get(), "") << field->Name();
  }
  EXPECT_TRUE(form.btnDefault.Default);
  EXPECT_FALSE(form.btnOK.Default);
  EXPECT_EQ(form.Caption.Get(), "Quillbank Translator: Translate Attributes");
  EXPECT_EQ(form.TargetValue.TextFont.Get().name, "MS Shell Dlg");
  TheForms().Unloaded(form);
}

TEST_F(AttributeDialogTest, CopySource_TakesTheSourceText) {
  Fill("Quelle", "before", "old");
  Form().btnCopySource.Click();
  EXPECT_EQ(Form().TargetValue.Text.Get(), "Quelle");
}

TEST_F(AttributeDialogTest, ReusePrevious_TakesThePreviousTranslation) {
  Fill("Quelle", "before", "old");
  Form().btnReusePreviousTranslation.Click();
  EXPECT_EQ(Form().TargetValue.Text.Get(), "old");
}

TEST_F(AttributeDialogTest, FirstEnter_FillsAnEmptyFieldAndTheSecondConfirms) {
  Fill("Quelle", "", "old");
  EXPECT_EQ(DefaultButton(), "btnDefault");
  Form().btnDefault.Click();
  EXPECT_EQ(Form().TargetValue.Text.Get(), "old");
  EXPECT_EQ(DefaultButton(), "btnOK");
  Form().btnOK.Click();
  EXPECT_THAT(Kit().calls, ElementsAre("unload frmAttributeTranslation"));
}

TEST_F(AttributeDialogTest, FirstEnter_WithoutAPreviousTranslationCopiesTheSource) {
  Fill("Quelle", "", "");
  Form().btnDefault.Click();
  EXPECT_EQ(Form().TargetValue.Text.Get(), "Quelle");
}

TEST_F(AttributeDialogTest, FirstEnter_LeavesAFilledFieldAloneAndMakesOkTheDefault) {
  Fill("Quelle", "typed", "old");
  Form().btnDefault.Click();
  EXPECT_EQ(Form().TargetValue.Text.Get(), "typed");
  EXPECT_EQ(DefaultButton(), "btnOK");
}

TEST_F(AttributeDialogTest, Ok_KeepsTheTargetAndTracesIt) {
  frmAttributeTranslation& form = Form();
  Fill("Quelle", "typed", "old");
  form.btnOK.Click();
  EXPECT_EQ(form.TargetValue.Text.Get(), "typed");
  EXPECT_FALSE(form.Visible);
  const auto lines = TraceLines();
  ASSERT_GE(lines.size(), 3U);
  EXPECT_THAT(std::vector<std::string>(lines.end() - 3, lines.end()),
              ElementsAre("frmAttributeTranslation.Form_Unload: ->",
                          "frmAttributeTranslation.Form_Unload: Returned Translation: typed",
                          "frmAttributeTranslation.Form_Unload: <-"));
}

TEST_F(AttributeDialogTest, Cancel_EmptiesTheTargetBeforeItGoes) {
  frmAttributeTranslation& form = Form();
  Fill("Quelle", "typed", "old");
  form.btnCancel.Click();
  EXPECT_EQ(form.TargetValue.Text.Get(), "");
  EXPECT_FALSE(form.Visible);
  EXPECT_THAT(TraceLines(),
              ::testing::Contains("frmAttributeTranslation.Form_Unload: Returned Translation: "));
}

TEST_F(AttributeDialogTest, ListAndInit_DoNothing) {
  Form().Init();
  EXPECT_FALSE(Form().ctlProperties.Click);
  EXPECT_THAT(Form().ctlProperties.Items(), ::testing::IsEmpty());
}

}  // namespace
}  // namespace qb
