#include "wx/DialogWindow.h"

#include "ui/Toolkit.h"
#include "wx/AccessibleNames.h"
#include "wx/WxText.h"

namespace qb {
namespace {

constexpr int kShift = 1;
constexpr int kAlt = 4;

int ShiftState(const wxKeyEvent& event) {
  return (event.ShiftDown() ? kShift : 0) | (event.ControlDown() ? Form::kCtrl : 0) |
         (event.AltDown() ? kAlt : 0);
}

/// The button that Enter presses; null if none does.
Button* DefaultButtonOf(const Form& form) {
  for (Control* control : form.Controls()) {
    auto* button = dynamic_cast<Button*>(control);
    if (button != nullptr && button->Default) return button;
  }
  return nullptr;
}

}  // namespace

DialogWindow::DialogWindow(Form& form, wxWindow* parent, bool wide)
    : FormWindow(form),
      form_(form),
      dialog_(new wxDialog(parent, wxID_ANY, ToWx(form.Caption.Get()), wxDefaultPosition, wxDefaultSize,
                           wxDEFAULT_DIALOG_STYLE | (wide ? wxRESIZE_BORDER : 0))) {
  MarkAsDialog(*dialog_);
  BindEvents();
}

void DialogWindow::BindEvents() {
  dialog_->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
    if (event.CanVeto()) event.Veto();
    TheToolkit().Unload(form_, Form::kUnloadByUser);
  });
  dialog_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) { OnKey(event); });
}

void DialogWindow::OnKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  if (form_.KeyDown) form_.KeyDown(key, ShiftState(event));
  const bool turnsTabs = form_.KeyDown && key == WXK_TAB && event.ControlDown();
  const bool isEnter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
  Button* button = DefaultButtonOf(form_);
  const bool onButton = dynamic_cast<wxButton*>(wxWindow::FindFocus()) != nullptr;
  if (isEnter && !onButton && button != nullptr && controls_.WindowOf(*button) == nullptr) {
    if (button->Click) button->Click();  // the toolkit knows drawn buttons only
  } else if (!turnsTabs) {
    event.Skip();
  }
}

wxSizer* DialogWindow::ButtonRow(std::initializer_list<Button*> buttons, bool firstApart) {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  if (!firstApart) row->AddStretchSpacer();
  for (Button* button : buttons) {
    const bool first = button == *buttons.begin();
    if (!first && !firstApart) row->AddSpacer(dialog_->FromDIP(kGap));
    row->Add(controls_.Draw(*dialog_, *button));
    if (first && firstApart) row->AddStretchSpacer();
  }
  return row;
}

void DialogWindow::Finish(wxSizer* contents) {
  auto* frame = new wxBoxSizer(wxVERTICAL);
  frame->Add(contents, wxSizerFlags(1).Expand().Border(wxALL, dialog_->FromDIP(kMargin)));
  dialog_->SetSizer(frame);
  controls_.Apply();
  ApplyDefault();
  FitToTexts();
}

void DialogWindow::Apply() {
  if (dialog_->GetTitle() != ToWx(form_.Caption.Get())) dialog_->SetTitle(ToWx(form_.Caption.Get()));
  const bool textsChanged = controls_.Apply();
  ApplyDefault();
  // Only then: a dialog that is measured while it comes on screen for the first time ends up too narrow on
  // GTK.
  if (textsChanged) FitToTexts();
}

void DialogWindow::ApplyDefault() {
  Button* wanted = DefaultButtonOf(form_);
  if (wanted == default_) return;
  default_ = wanted;
  auto* drawn = wanted == nullptr ? nullptr : dynamic_cast<wxButton*>(controls_.WindowOf(*wanted));
  if (drawn != nullptr) {
    drawn->SetDefault();
  } else {
    dialog_->SetDefaultItem(nullptr);
  }
}

void DialogWindow::FitToTexts() {
  dialog_->GetSizer()->SetSizeHints(dialog_);
  if (form_.OnScreenCentre) {
    dialog_->CentreOnScreen();
  } else {
    dialog_->CentreOnParent();
  }
}

}  // namespace qb
