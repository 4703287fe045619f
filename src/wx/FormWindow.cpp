#include "wx/FormWindow.h"

#include <wx/dialog.h>

#include "ui/frmAbout.h"
#include "ui/frmAttributeTranslation.h"
#include "ui/frmFileCheckinDialog.h"
#include "ui/frmOptions.h"
#include "ui/frmQBTranslator.h"
#include "ui/frmSplash.h"
#include "ui/frmTranslateTitle.h"
#include "wx/AboutWindow.h"
#include "wx/AttributeWindow.h"
#include "wx/CheckinWindow.h"
#include "wx/MainWindow.h"
#include "wx/OptionsWindow.h"
#include "wx/SplashWindow.h"
#include "wx/TitleWindow.h"

namespace qb {

FormWindow::FormWindow(Form& form) : form_(&form), timers_(form) {
  form.Observer = this;
}

FormWindow::~FormWindow() {
  Detach();
}

void FormWindow::Detach() {
  timers_.Stop();
  if (form_ != nullptr) form_->Observer = nullptr;
  form_ = nullptr;
  applyRequested_ = false;
}

void FormWindow::Show() {
  ApplyChanges();
  form_->Visible = true;
  Window().Show();
}

void FormWindow::ShowModal() {
  auto* dialog = dynamic_cast<wxDialog*>(&Window());
  if (dialog == nullptr) {
    Show();
    return;
  }
  ApplyChanges();
  form_->Visible = true;
  modal_ = true;
  dialog->ShowModal();
  modal_ = false;
}

void FormWindow::Hide() {
  if (form_ != nullptr) form_->Visible = false;
  auto* dialog = dynamic_cast<wxDialog*>(&Window());
  if (dialog != nullptr && dialog->IsModal()) {
    dialog->EndModal(wxID_OK);
  } else {
    Window().Hide();
  }
}

void FormWindow::Repaint() {
  ApplyChanges();
  Window().Refresh();
  Window().Update();
}

void FormWindow::ControlChanged(Control&) {
  RequestApply();
}

void FormWindow::RequestApply() {
  if (!applyRequested_) wxWakeUpIdle();
  applyRequested_ = true;
}

void FormWindow::ApplyChanges() {
  if (!applyRequested_) return;
  // What applying itself changes is applied in the next turn.
  applyRequested_ = false;
  timers_.Apply();
  Apply();
}

std::unique_ptr<FormWindow> MakeFormWindow(Form& form, wxWindow* parent) {
  if (auto* main = dynamic_cast<frmQBTranslator*>(&form)) return std::make_unique<MainWindow>(*main);
  if (auto* splash = dynamic_cast<frmSplash*>(&form)) return std::make_unique<SplashWindow>(*splash);
  if (auto* about = dynamic_cast<frmAbout*>(&form)) return std::make_unique<AboutWindow>(*about, parent);
  if (auto* checkin = dynamic_cast<frmFileCheckinDialog*>(&form))
    return std::make_unique<CheckinWindow>(*checkin, parent);
  if (auto* title = dynamic_cast<frmTranslateTitle*>(&form))
    return std::make_unique<TitleWindow>(*title, parent);
  if (auto* options = dynamic_cast<frmOptions*>(&form))
    return std::make_unique<OptionsWindow>(*options, parent);
  if (auto* attributes = dynamic_cast<frmAttributeTranslation*>(&form))
    return std::make_unique<AttributeWindow>(*attributes, parent);
  return nullptr;
}

}  // namespace qb
