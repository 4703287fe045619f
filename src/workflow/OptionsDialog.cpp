#include "workflow/OptionsDialog.h"

#include <string>

#include "foundation/Product.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "ui/Toolkit.h"
#include "workflow/ModalForm.h"
#include "workflow/Settings.h"
#include "workflow/TranslateMod.h"
#include "workflow/WindowEvents.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "frmOptions";
constexpr std::string_view kKnownLanguages = "de\ten\tja";

void Apply(frmOptions& form) {
  // A part of the list passes, "e" or nothing at all too: stays so.
  if (kKnownLanguages.find(LowerCase(form.cmbLanguage.Text.Get())) == std::string_view::npos) {
    gInterfaceLanguage = "en";
    form.cmbLanguage.Text = std::string("en");
  }
  const std::string language = form.cmbLanguage.Text;
  const std::string userID = form.edtUserID.Text;
  ApplySettings(language, userID, StrictNumber(form.edtTimerInterval.Text.Get()));
  QbtSetRegistrySettings();
}

}  // namespace

void ShowOptions() {
  Attempt(ShowNewModal<frmOptions>);
  Err.Clear();
}

void SetOpt(frmOptions& form) {
  if (Attempt([&form] { Apply(form); })) return;
  const PendingError error = Err;  // asking for a wording clears the pending one
  const std::string text =
      QBL_FormatText(QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.SETOPT.T.00017|An error has occurred attempting "
                               "to set the options: #%1: %2"),
                     std::to_string(error.Number), error.Description);
  if (gMessageHandler != nullptr) gMessageHandler->Message(text, 2, true, false);
  Trace(3, kModule, "SetOpt", "{}", text);
  Err.Clear();
}

void OptionsLoaded(frmOptions& form) {
  Attempt([&form] {
    FormLoaded(form);
    std::string language;
    std::string userID;
    std::int32_t interval = 0;
    GetSettings(language, userID, interval);
    form.cmbLanguage.Text = language;
    form.edtUserID.Text = userID;
    form.edtTimerInterval.Text = std::to_string(interval);
    for (const char* item : {"en", "de", "ja"}) form.cmbLanguage.AddItem(item);
  });
  Err.Clear();
}

void OptionsConfirmed(frmOptions& form) {
  SetOpt(form);
  TheToolkit().Unload(form, Form::kUnloadByCode);
}

void OptionsCancelled(frmOptions& form) {
  TheToolkit().Unload(form, Form::kUnloadByCode);
}

void OptionsKeyPressed(frmOptions& form, int key, int shift) {
  if (key != Form::kTabKey || shift != Form::kCtrl) return;
  const int next = form.tbsOptions.SelectedIndex() % form.tbsOptions.TabCount() + 1;
  form.tbsOptions.Select(next);
}

void OptionsTabSelected(frmOptions& form) {
  const int selected = form.tbsOptions.SelectedIndex() - 1;
  for (std::size_t i = 0; i < form.picOptions.size(); ++i) {
    form.picOptions[i].Visible = static_cast<int>(i) == selected;
  }
}

}  // namespace qb
