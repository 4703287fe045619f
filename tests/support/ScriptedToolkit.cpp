#include "support/ScriptedToolkit.h"

#include "ui/Forms.h"
#include "ui/frmSplash.h"

namespace qb {

void ScriptedToolkit::Show(Form& form) {
  calls.push_back("show " + form.Name());
  form.Visible = true;
}

void ScriptedToolkit::ShowModal(Form& form) {
  calls.push_back("show modal " + form.Name());
  form.Visible = true;
  if (!modals_.empty()) {
    const auto play = std::move(modals_.front());
    modals_.pop_front();
    play(form);
  }
  form.Visible = false;
}

void ScriptedToolkit::Hide(Form& form) {
  calls.push_back("hide " + form.Name());
  form.Visible = false;
}

bool ScriptedToolkit::Unload(Form& form, int reason) {
  calls.push_back("unload " + form.Name());
  return RaiseUnloadEvents(form, reason);
}

void ScriptedToolkit::Repaint(Form& form) {
  ++repaints;
  if (onRepaint) onRepaint(form);
}

void ScriptedToolkit::PopupMenu(MenuItem& menu) {
  calls.push_back("popup " + menu.Name());
}

void ScriptedToolkit::SetFocus(VisibleControl& control) {
  calls.push_back("focus " + control.Name());
}

void ScriptedToolkit::ProcessPendingEvents() {
  for (Form* form : TheForms().Loaded()) {
    auto* splash = dynamic_cast<frmSplash*>(form);
    if (splash != nullptr && splash->Visible && splash->tmrSplash.Tick) splash->tmrSplash.Tick();
  }
}

}  // namespace qb
