#include "wx/WxToolkit.h"

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/display.h>
#include <wx/menu.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "foundation/EventLoop.h"
#include "ui/Forms.h"
#include "wx/KeepAlive.h"
#include "wx/MenuRenderer.h"
#include "wx/SessionEnd.h"
#include "wx/WxClipboard.h"
#include "wx/WxFileDialogs.h"
#include "wx/WxMessageBoxes.h"
#include "wx/WxMousePointer.h"

namespace qb {
namespace {

constexpr unsigned long kPauseMilliseconds = 5;

/// Ends with the window that it was scheduled behind.
struct RetiredWindow : wxObject {
  explicit RetiredWindow(std::unique_ptr<FormWindow> retired) : window(std::move(retired)) {}
  std::unique_ptr<FormWindow> window;
};

/// The dialogs that a platform has brought, in front of windows that are up to date.
class PlatformFileDialogs : public FileDialogs {
 public:
  explicit PlatformFileDialogs(std::unique_ptr<FileDialogs> dialogs) : dialogs_(std::move(dialogs)) {}
  bool GetOpenFileName(OpenFileRecord& record) override {
    DrawChanges();
    return dialogs_->GetOpenFileName(record);
  }

 private:
  std::unique_ptr<FileDialogs> dialogs_;
};

}  // namespace

WxToolkit::WxToolkit() {
  gProcessPendingEvents = [this] { ProcessPendingEvents(); };
  wxTheApp->Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    ApplyAllChanges();
  });
  WatchSessionEnd([this] { EndSession(); });
}

WxToolkit::~WxToolkit() {
  gProcessPendingEvents = nullptr;
}

FormWindow* WxToolkit::Find(const Form& form) {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.get();
}

FormWindow* WxToolkit::FindOrMake(Form& form) {
  if (FormWindow* window = Find(form)) return window;
  std::unique_ptr<FormWindow> made = MakeFormWindow(form, ParentForDialogs());
  if (made == nullptr) return nullptr;
  return (windows_[&form] = std::move(made)).get();
}

void WxToolkit::Show(Form& form) {
  FormWindow* window = FindOrMake(form);
  if (window == nullptr) return;
  window->Show();
  ApplyFocus();
}

void WxToolkit::ShowModal(Form& form) {
  FormWindow* window = FindOrMake(form);
  if (window == nullptr) return;
  wxTheApp->CallAfter([this] { ApplyFocus(); });  // once it is on screen
  window->ShowModal();
  if (!form.Visible) Retire(form);
}

void WxToolkit::Hide(Form& form) {
  if (FormWindow* window = Find(form)) window->Hide();
}

bool WxToolkit::Unload(Form& form, int reason) {
  if (!RaiseUnloadEvents(form, reason)) return false;
  FormWindow* window = Find(form);
  if (window == nullptr) return true;
  const bool modal = window->IsModal();
  window->Hide();
  // A modal window is still inside its own loop, which `ShowModal` leaves.
  if (!modal) Retire(form);
  return true;
}

void WxToolkit::Retire(const Form& form) {
  const auto found = windows_.find(&form);
  if (found == windows_.end()) return;
  std::unique_ptr<FormWindow> window = std::move(found->second);
  windows_.erase(found);
  window->Detach();
  window->Window().Destroy();
  wxTheApp->ScheduleForDestruction(new RetiredWindow(std::move(window)));
}

void WxToolkit::Repaint(Form& form) {
  if (FormWindow* window = Find(form)) window->Repaint();
}

void WxToolkit::PopupMenu(MenuItem& menu) {
  wxWindow* parent = ParentForDialogs();
  if (parent == nullptr) return;
  MenuRenderer renderer(menu);
  const std::unique_ptr<wxMenu> owner(&renderer.Menu());
  // The command runs when the menu is gone, since it may show boxes.
  MenuItem* chosen = renderer.Find(parent->GetPopupMenuSelectionFromUser(renderer.Menu()));
  if (chosen != nullptr && chosen->Click) chosen->Click();
}

void WxToolkit::SetFocus(VisibleControl& control) {
  wantsFocus_ = &control;
  ApplyFocus();
}

void WxToolkit::ApplyFocus() {
  if (wantsFocus_ == nullptr) return;
  FormWindow* window = Find(wantsFocus_->Owner());
  if (window == nullptr || !window->Window().IsShown()) return;
  window->ApplyChanges();
  wxWindow* drawn = window->WindowOf(*wantsFocus_);
  // A hidden window that has the keyboard swallows every key.
  if (drawn != nullptr && drawn->IsShownOnScreen()) drawn->SetFocus();
  wantsFocus_ = nullptr;
}

void WxToolkit::ApplyAllChanges() {
  std::vector<FormWindow*> windows;
  for (const auto& each : windows_) windows.push_back(each.second.get());
  for (FormWindow* window : windows) window->ApplyChanges();
}

void WxToolkit::ProcessPendingEvents() {
  ApplyAllChanges();
  wxTheApp->Yield(true);
  wxMilliSleep(kPauseMilliseconds);
}

void WxToolkit::KeepAlive() {
  ApplyAllChanges();
  DrawWithoutInput();
}

ScreenArea WxToolkit::WorkArea() {
  const wxWindow* const window = wxTheApp->GetTopWindow();
  const int found = window == nullptr ? wxNOT_FOUND : wxDisplay::GetFromWindow(window);
  const wxRect area = wxDisplay(found == wxNOT_FOUND ? 0U : static_cast<unsigned>(found)).GetClientArea();
  return {area.x, area.y, area.width, area.height};
}

void WxToolkit::EndSession() {
  if (IsKeptAlive()) {
    wxTheApp->CallAfter([this] { EndSession(); });  // when the command that waits has ended
    return;
  }
  for (Form* form : TheForms().Loaded()) {
    if (Find(*form) != nullptr) Unload(*form, Form::kUnloadByTaskManager);
  }
}

void WxToolkit::EndProcess() {
  // Lets the desktop keep what was copied.
  if (wxTheClipboard->Open()) {
    wxTheClipboard->Flush();
    wxTheClipboard->Close();
  }
  for (const auto& each : windows_) each.second->Window().Hide();
  // The end of the process is asked for from within events of windows that the usual way out would destroy.
  std::fflush(nullptr);
  std::_Exit(EXIT_SUCCESS);
}

wxWindow* ParentForDialogs() {
  wxWindow* active = wxGetActiveWindow();
  if (active != nullptr) active = wxGetTopLevelParent(active);
  if (active != nullptr && active->IsShown()) return active;
  // While another program is in front: the window that came last.
  for (auto* window = wxTopLevelWindows.GetLast(); window != nullptr; window = window->GetPrevious()) {
    if (window->GetData()->IsShown()) return window->GetData();
  }
  return nullptr;
}

void DrawChanges() {
  if (auto* toolkit = dynamic_cast<WxToolkit*>(&TheToolkit())) toolkit->ApplyAllChanges();
}

void AddWxDesktop(Platform& platform) {
  platform.messageBoxes = std::make_unique<WxMessageBoxes>();
  if (platform.fileDialogs) {
    platform.fileDialogs = std::make_unique<PlatformFileDialogs>(std::move(platform.fileDialogs));
  } else {
    platform.fileDialogs = std::make_unique<WxFileDialogs>();
  }
  if (!platform.clipboard) platform.clipboard = std::make_unique<WxClipboard>();
  platform.mousePointer = std::make_unique<WxMousePointer>();
}

}  // namespace qb
