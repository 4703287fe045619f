#include <gmock/gmock.h>

#include "runtime/RuntimeError.h"
#include "support/WorkflowTest.h"
#include "ui/Toolkit.h"
#include "workflow/OptionsDialog.h"
#include "workflow/Settings.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class OptionsDialogTest : public WorkflowTest {
 protected:
  OptionsDialogTest() {
    Start();
    gUserID = "Ann";
    Kit().calls.clear();
  }

  /// Opens the dialog from the menu; the user does what `play` does.
  void Open(std::function<void(frmOptions&)> play) {
    Kit().WhileNextModal([play = std::move(play)](Form& form) { play(dynamic_cast<frmOptions&>(form)); });
    Window().mniOptions.Click();
  }

  static void Type(frmOptions& form, const char* language, const char* userID, const char* interval) {
    form.cmbLanguage.Text = std::string(language);
    form.edtUserID.Text = std::string(userID);
    form.edtTimerInterval.Text = std::string(interval);
  }
};

TEST_F(OptionsDialogTest, Load_ShowsTheSettingsInTheMiddleOfTheScreen) {
  gTimerInterval = 250;
  Open([](frmOptions& form) {
    EXPECT_EQ(form.Caption.Get(), "ORB Quillbank Translator: Options");
    EXPECT_EQ(form.cmbLanguage.Text.Get(), "en");
    EXPECT_THAT(form.cmbLanguage.Items(), ElementsAre("en", "de", "ja"));
    EXPECT_EQ(form.edtUserID.Text.Get(), "Ann");
    EXPECT_EQ(form.edtTimerInterval.Text.Get(), "250");
    EXPECT_TRUE(form.OnScreenCentre);
    EXPECT_EQ(form.edtUserID.TextFont.Get().name, "MS Shell Dlg");
  });
}

TEST_F(OptionsDialogTest, Dialog_IsANewInstanceEachTimeAndReleasedAfterwards) {
  const std::size_t loaded = TheForms().Loaded().size();
  Open([](frmOptions& form) { form.cmbLanguage.Text = std::string("xx"); });
  Open([](frmOptions& form) { EXPECT_EQ(form.cmbLanguage.Text.Get(), "en"); });
  EXPECT_EQ(TheForms().Loaded().size(), loaded);
  EXPECT_FALSE(TheForms().HasDefault<frmOptions>());
}

TEST_F(OptionsDialogTest, Ok_AppliesStoresAndCloses) {
  Open([](frmOptions& form) {
    Type(form, "DE", "Bob", "1000");
    form.cmdOK.Click();
    EXPECT_FALSE(form.Visible);
  });
  EXPECT_THAT(Kit().calls, ElementsAre("show modal frmOptions", "unload frmOptions"));
  EXPECT_EQ(gInterfaceLanguage, "de");
  EXPECT_EQ(gHelpFile, R"(de\00005554.chm)");
  EXPECT_EQ(Setting("InterfaceLanguage"), "de");
  EXPECT_EQ(Setting("UserID"), "Bob");
  EXPECT_EQ(Setting("TimerInterval"), "1000");
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(OptionsDialogTest, Ok_TheRunningTimerKeepsItsInterval) {
  Open([](frmOptions& form) {
    Type(form, "en", "Bob", "1000");
    form.cmdOK.Click();
  });
  EXPECT_EQ(Window().tmrTimer1.Interval.Get(), 5000);
}

TEST_F(OptionsDialogTest, Apply_NewLanguage_ChangesTheOpenWindowsAtOnceAndStaysOpen) {
  Write(R"(\app\de\QuillbankTranslator.lan)",
        "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUFILECAPTION.C.00012\t&File\t&Datei\r\n"
        "QB.QBTRANSLAT.FRMOPTIONS.000.CMDCANCELCAPTIO001654.C.00012\tCancel\tAbbrechen\r\n");
  gInstallationPath = R"(\app)";
  Open([this](frmOptions& form) {
    Type(form, "de", "Ann", "5000");
    form.cmdApply.Click();
    EXPECT_TRUE(form.Visible);
    EXPECT_EQ(form.cmdCancel.Caption.Get(), "Abbrechen");
    EXPECT_EQ(Window().mnuFile.Caption.Get(), "&Datei");
  });
}

TEST_F(OptionsDialogTest, ApplyThenCancel_KeepsWhatWasApplied) {
  Open([](frmOptions& form) {
    Type(form, "de", "Bob", "1000");
    form.cmdApply.Click();
    Type(form, "ja", "Eve", "2000");
    form.cmdCancel.Click();
  });
  EXPECT_EQ(Setting("UserID"), "Bob");
  EXPECT_EQ(gInterfaceLanguage, "de");
  EXPECT_EQ(gTimerInterval, 1000);
}

TEST_F(OptionsDialogTest, Cancel_SavesNothing) {
  Open([](frmOptions& form) {
    Type(form, "de", "Bob", "1000");
    form.cmdCancel.Click();
    EXPECT_FALSE(form.Visible);
  });
  EXPECT_EQ(gInterfaceLanguage, "en");
  EXPECT_EQ(gUserID, "Ann");
  EXPECT_EQ(gTimerInterval, 5000);
}

TEST_F(OptionsDialogTest, IntervalThatIsNoNumber_IsReportedAndNothingIsApplied) {
  Open([](frmOptions& form) {
    Type(form, "de", "Bob", "abc");
    form.cmdApply.Click();
    EXPECT_TRUE(form.Visible);
    EXPECT_EQ(form.edtTimerInterval.Text.Get(), "abc");
  });
  constexpr const char* kText = "An error has occurred attempting to set the options: #13: ";
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(kText)));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kStop);
  EXPECT_THAT(TraceLines(), Contains(HasSubstr(std::string("frmOptions.SetOpt: ") + kText)));
  EXPECT_EQ(gInterfaceLanguage, "en");
  EXPECT_EQ(gUserID, "Ann");
  EXPECT_EQ(gTimerInterval, 5000);
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(OptionsDialogTest, Ok_IntervalThatIsNoNumber_ClosesAllTheSame) {
  Open([](frmOptions& form) {
    Type(form, "en", "Bob", "abc");
    form.cmdOK.Click();
    EXPECT_FALSE(form.Visible);
  });
  EXPECT_EQ(Boxes().Shown().size(), 1U);
  EXPECT_EQ(gUserID, "Ann");
}

TEST_F(OptionsDialogTest, IntervalTooLarge_IsReportedAsOverflow) {
  Open([](frmOptions& form) {
    Type(form, "en", "Bob", "99999999999");
    form.cmdOK.Click();
  });
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("set the options: #6: ")));
}

TEST_F(OptionsDialogTest, UnknownLanguage_BecomesEnglishWithoutAWord) {
  Open([](frmOptions& form) {
    Type(form, "fr", "Bob", "1000");
    form.cmdApply.Click();
    EXPECT_EQ(form.cmbLanguage.Text.Get(), "en");
  });
  EXPECT_EQ(Setting("InterfaceLanguage"), "en");
  EXPECT_EQ(Setting("UserID"), "Bob");
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(OptionsDialogTest, PartOfALanguage_PassesAndItsFilesAreLookedUp) {
  gInstallationPath = R"(\app)";
  for (const auto& [typed, held] : {std::pair{"e", "e"}, std::pair{"JA", "ja"}, std::pair{"", ""}}) {
    Open([typed = typed](frmOptions& form) {
      Type(form, typed, "Bob", "1000");
      form.cmdOK.Click();
    });
    EXPECT_EQ(gInterfaceLanguage, held);
    EXPECT_EQ(gHelpFile, std::string(held) + R"(\00005554.chm)");
  }
  Write(R"(\app\e\QuillbankTranslator.lan)", "");
  Open([](frmOptions& form) {
    Type(form, "e", "Bob", "1000");
    form.cmdOK.Click();
  });
  EXPECT_EQ(gLanguageFile, R"(\app\e\QuillbankTranslator.lan)");
}

TEST_F(OptionsDialogTest, UnknownLanguageWithABadInterval_IsEnglishAndReported) {
  gInterfaceLanguage = "ja";
  Open([](frmOptions& form) {
    Type(form, "fr", "Bob", "abc");
    form.cmdOK.Click();
  });
  EXPECT_EQ(gInterfaceLanguage, "en");
  EXPECT_EQ(Boxes().Shown().size(), 1U);
}

TEST_F(OptionsDialogTest, CtrlTab_StaysOnTheOneTab) {
  Open([](frmOptions& form) {
    form.KeyDown(Form::kTabKey, Form::kCtrl);
    EXPECT_EQ(form.tbsOptions.SelectedIndex(), 1);
    EXPECT_TRUE(form.picOptions[0].Visible);
  });
}

TEST_F(OptionsDialogTest, CtrlTab_WithMoreTabs_GoesRoundAndShowsTheirPages) {
  Open([](frmOptions& form) {
    form.tbsOptions.AddTab("Second");
    for (const std::size_t expected : {1U, 0U, 1U}) {
      form.KeyDown(Form::kTabKey, Form::kCtrl);
      for (std::size_t i = 0; i < form.picOptions.size(); ++i)
        EXPECT_EQ(form.picOptions[i].Visible.Get(), i == expected);
    }
    form.KeyDown(Form::kTabKey, 0);
    form.KeyDown('A', Form::kCtrl);
    EXPECT_EQ(form.tbsOptions.SelectedIndex(), 2);
  });
}

TEST_F(OptionsDialogTest, FailureOfTheOpening_IsIgnored) {
  Kit().WhileNextModal([](Form&) { throw RuntimeError(failure::kOutOfMemory); });
  Window().mniOptions.Click();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(OptionsDialogTest, GetSettings_GivesWhatIsHeld) {
  std::string language;
  std::string userID;
  std::int32_t interval = 0;
  GetSettings(language, userID, interval);
  EXPECT_EQ(language, "en");
  EXPECT_EQ(userID, "Ann");
  EXPECT_EQ(interval, 5000);
}

}  // namespace
}  // namespace qb
