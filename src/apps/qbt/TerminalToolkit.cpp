#include "apps/qbt/TerminalToolkit.h"

#include <chrono>
#include <thread>

#include "ui/frmFileCheckinDialog.h"
#include "ui/frmSplash.h"

namespace qb {
namespace {
constexpr std::chrono::milliseconds kPause{5};
}  // namespace

void TerminalToolkit::Show(Form& form) {
  if (dynamic_cast<frmSplash*>(&form) != nullptr) return;  // the start waits for it to go
  form.Visible = true;
}

void TerminalToolkit::ShowModal(Form& form) {
  form.Visible = true;
  if (PlayModal) PlayModal(form);
  form.Visible = false;
}

void TerminalToolkit::Hide(Form& form) {
  form.Visible = false;
  terminal_.ClearProgress();
}

bool TerminalToolkit::Unload(Form& form, int reason) {
  return RaiseUnloadEvents(form, reason);
}

void TerminalToolkit::Repaint(Form& form) {
  const auto* checkin = dynamic_cast<const frmFileCheckinDialog*>(&form);
  if (checkin == nullptr || !checkin->Visible) return;
  const ProgressBar& bar = checkin->ctlProgressBar;
  terminal_.DrawProgress(static_cast<std::size_t>(bar.Value - bar.Min),
                         static_cast<std::size_t>(bar.Max - bar.Min), checkin->lblText.Caption.Get());
}

void TerminalToolkit::ProcessPendingEvents() {
  std::this_thread::sleep_for(kPause);
}

void TerminalToolkit::EndProcess() {
  throw ProcessEnded{};
}

}  // namespace qb
