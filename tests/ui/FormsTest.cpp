#include <gmock/gmock.h>

#include "ui/Forms.h"
#include "ui/Toolkit.h"
#include "ui/controls/SimpleControls.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SomeForm : public Form {
 public:
  SomeForm() : Form("SomeForm", "caption") { ++made; }
  ~SomeForm() override { --made; }
  void QBL_InitLText() override { ++worded; }

  static inline int made = 0;
  int worded = 0;
  Label label{*this, "label", "text"};
  Timer timer{*this, "timer", 5};
  Image image{*this, "image", "ICON"};
};

class OtherForm : public Form {
 public:
  OtherForm() : Form("OtherForm") {}
  void QBL_InitLText() override {}
};

class FormsTest : public ::testing::Test {
 protected:
  FormsTest() { TheForms().Clear(); }
  ~FormsTest() override { TheForms().Clear(); }
};

TEST_F(FormsTest, Default_FirstTouch_MakesBindsAndLoadsInThisOrder) {
  std::vector<std::string> events;
  TheForms().Binder = [&](Form& form) {
    events.push_back("bind " + form.Name());
    form.Load = [&events, &form] { events.push_back("load " + form.Name()); };
  };
  EXPECT_FALSE(TheForms().HasDefault<SomeForm>());
  SomeForm& form = Default<SomeForm>();
  EXPECT_TRUE(TheForms().HasDefault<SomeForm>());
  EXPECT_EQ(&Default<SomeForm>(), &form);
  EXPECT_THAT(events, ElementsAre("bind SomeForm", "load SomeForm"));
}

TEST_F(FormsTest, Default_TouchedInItsOwnLoadEvent_IsTheSameForm) {
  SomeForm* seen = nullptr;
  TheForms().Binder = [&](Form& form) { form.Load = [&seen] { seen = &Default<SomeForm>(); }; };
  EXPECT_EQ(&Default<SomeForm>(), seen);
}

TEST_F(FormsTest, Loaded_KeepsTheOrder) {
  Form& first = Default<OtherForm>();
  Form& second = Default<SomeForm>();
  SomeForm third;
  TheForms().Load(third);
  EXPECT_THAT(TheForms().Loaded(), ElementsAre(&first, &second, &third));
  TheForms().Unloaded(third);
  EXPECT_THAT(TheForms().Loaded(), ElementsAre(&first, &second));
}

TEST_F(FormsTest, Unloaded_NextTouchMakesANewOneAndTheOldOneLivesOn) {
  SomeForm& first = Default<SomeForm>();
  TheForms().Unloaded(first);
  EXPECT_FALSE(TheForms().HasDefault<SomeForm>());
  EXPECT_NE(&Default<SomeForm>(), &first);
  EXPECT_EQ(SomeForm::made, 2);
  first.QBL_InitLText();  // its events may still run
  EXPECT_EQ(first.worded, 1);
  TheForms().Clear();
  EXPECT_EQ(SomeForm::made, 0);
}

TEST_F(FormsTest, Clear_DropsTheBinderToo) {
  TheForms().Binder = [](Form&) { FAIL() << "The binder is still there"; };
  TheForms().Clear();
  Default<SomeForm>();
  EXPECT_EQ(TheForms().Loaded().size(), 1U);
}

TEST_F(FormsTest, RaiseUnloadEvents_QueryKeepsTheForm) {
  SomeForm& form = Default<SomeForm>();
  int reason = -1;
  form.QueryUnload = [&](int why) {
    reason = why;
    return true;
  };
  form.Unload = [] { FAIL() << "It was kept"; };
  form.Visible = true;
  EXPECT_FALSE(RaiseUnloadEvents(form, Form::kUnloadByTaskManager));
  EXPECT_EQ(reason, 3);
  EXPECT_TRUE(form.Visible.Get());
  EXPECT_TRUE(TheForms().HasDefault<SomeForm>());
}

TEST_F(FormsTest, RaiseUnloadEvents_OtherwiseItGoes) {
  SomeForm& form = Default<SomeForm>();
  int unloads = 0;
  form.QueryUnload = [](int) { return false; };
  form.Unload = [&] { ++unloads; };
  form.Visible = true;
  EXPECT_TRUE(RaiseUnloadEvents(form, Form::kUnloadByCode));
  EXPECT_EQ(unloads, 1);
  EXPECT_FALSE(form.Visible.Get());
  EXPECT_THAT(TheForms().Loaded(), IsEmpty());
}

TEST_F(FormsTest, Controls_StandInTheirOrderOfCreationWithoutTheForm) {
  SomeForm form;
  EXPECT_THAT(form.Controls(), ElementsAre(&form.label, &form.timer, &form.image));
  EXPECT_EQ(form.ControlCount(), 3U);
  EXPECT_EQ(&form.label.Owner(), &form);
}

TEST_F(FormsTest, Fonts_GoToControlsThatHaveOne) {
  SomeForm form;
  form.SetOwnFont("Arial", 128);
  EXPECT_EQ(form.TextFont.Get(), (Font{"Arial", 0, 128, false}));
  for (std::size_t index = 0; index < form.ControlCount(); ++index) {
    form.SetControlFont(index, "Dialog", 8.75, 1);
  }
  EXPECT_EQ(form.label.TextFont.Get(), (Font{"Dialog", 8.75, 1, false}));
  EXPECT_EQ(form.image.TextFont.Get(), Font{});
}

TEST_F(FormsTest, LocalizationWording_IsTheSameUnlessAFormHasItsOwn) {
  SomeForm form;
  form.QBL_InitLText_Localization();
  EXPECT_EQ(form.worded, 1);
}

TEST_F(FormsTest, Observer_IsToldOfChangesOnly) {
  struct Count : FormObserver {
    void ControlChanged(Control& control) override { names.push_back(control.Name()); }
    std::vector<std::string> names;
  };
  SomeForm form;
  Count observer;
  form.Observer = &observer;
  form.label.Caption = std::string("new");
  form.label.Caption = std::string("new");
  form.timer.Interval = 7;
  form.Caption = std::string("form");
  EXPECT_THAT(observer.names, ElementsAre("label", "timer", "SomeForm"));
}

}  // namespace
}  // namespace qb
