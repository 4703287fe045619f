#include "wx/MainWindow.h"

#include <wx/display.h>

#include "ui/Toolkit.h"
#include "wx/AccessibleNames.h"
#include "wx/Icons.h"
#include "wx/Twips.h"
#include "wx/WxText.h"

namespace qb {
namespace {

constexpr int kViewIconSize = 16;
const wxSize kStartSize(1200, 680);  // all columns of the list
const wxSize kSmallestSize(480, 320);

// What the form's rule for the tree takes off the window's outer size for borders, title bar and menu. Real
// ones measure otherwise, so the outer size is told such that the tree fills the space between tool and
// status bar.
constexpr int kBorderWidth = 100;
constexpr int kTitleAndMenuHeight = 660;

}  // namespace

MainWindow::MainWindow(frmQBTranslator& form)
    : FormWindow(form),
      form_(form),
      frame_(new wxFrame(nullptr, wxID_ANY, ToWx(form.Caption.Get()))),
      toolbar_(*frame_, form.Toolbar),
      statusLine_(*frame_, form.sbcStatusBar),
      content_(new wxPanel(frame_)),
      tree_(*content_, form.TransPackTree, IconBitmaps(form.ImageList2.Keys(), kViewIconSize),
            [this] { RequestApply(); }),
      list_(*content_, form.lvInfoObjectList, IconBitmaps(form.ImageList2.Keys(), kViewIconSize),
            [this] { RequestApply(); }) {
  frame_->SetIcons(ProgramIcons());
  frame_->SetMinClientSize(frame_->FromDIP(kSmallestSize));
  wxSize startSize = frame_->FromDIP(kStartSize);
  startSize.DecTo(wxDisplay(frame_).GetClientArea().GetSize());
  frame_->SetClientSize(startSize);
  MakeMenuBar();
  SetAccessibleName(tree_.Window(), "Documents");
  SetAccessibleName(list_.Window(), "Documents");
  BindEvents();
  RequestApply();
}

void MainWindow::MakeMenuBar() {
  auto* bar = new wxMenuBar;
  for (const MenuItem* menu : form_.MenuBar()) {
    menus_.emplace_back(*menu);
    bar->Append(&menus_.back().Menu(), MenuLabel(*menu));
  }
  frame_->SetMenuBar(bar);
}

void MainWindow::BindEvents() {
  frame_->Bind(wxEVT_MENU, [this](wxCommandEvent& event) { OnMenu(event); });
  frame_->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
    // The form decides; a window that may go is destroyed by the toolkit.
    if (event.CanVeto()) event.Veto();
    TheToolkit().Unload(form_, Form::kUnloadByUser);
  });
  content_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    OnSize();
  });
  frame_->Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    if (frame_->IsShownOnScreen()) settled_ = true;
  });
}

void MainWindow::OnMenu(const wxCommandEvent& event) {
  for (const MenuRenderer& menu : menus_) {
    MenuItem* item = menu.Find(event.GetId());
    if (item == nullptr) continue;
    RequestApply();  // the toolkit has switched a check mark on its own, which is the form's to decide
    if (item->Click) item->Click();
    return;
  }
}

wxWindow* MainWindow::WindowOf(const Control& control) {
  if (&control == &form_.TransPackTree) return &tree_.Window();
  if (&control == &form_.lvInfoObjectList) return &list_.Window();
  return nullptr;
}

void MainWindow::Show() {
  FormWindow::Show();
  frame_->Raise();
}

void MainWindow::OnSize() {
  if (content_->GetClientSize() == measured_) return;
  measured_ = content_->GetClientSize();
  MeasureForm();
  // A resize puts the tree on top. The size that the window starts with is no resize, or a program that
  // starts with the list could never show it.
  const bool resized = settled_ || form_.TransPackTree.Visible;
  if (resized && form_.Resize) form_.Resize();
  PlaceViews();
}

void MainWindow::MeasureForm() {
  const wxSize space = frame_->ToDIP(measured_);
  const int above = TwipsOf(toolbar_.Height());
  const int below = TwipsOf(statusLine_.Height());
  const int width = TwipsOf(space.x);
  const int height = TwipsOf(space.y);
  form_.Toolbar.Place = Bounds{0, 0, width, above};
  form_.sbcStatusBar.Place = Bounds{0, above + height, width, below};
  const wxPoint corner = frame_->ToDIP(frame_->GetPosition());
  form_.Place = Bounds{TwipsOf(corner.x), TwipsOf(corner.y), width + kBorderWidth,
                       above + height + below + kTitleAndMenuHeight};
}

void MainWindow::PlaceViews() {
  const Bounds& place = form_.TransPackTree.Place;
  if (place.width <= 0 || place.height <= 0) {
    tree_.Window().SetSize(content_->GetClientSize());  // the form has not placed it yet
  } else {
    // The form counts from above its tool bar.
    const int top = PixelsOf(place.top - form_.Toolbar.Place.Get().height);
    tree_.Window().SetSize(wxRect(frame_->FromDIP(wxPoint(PixelsOf(place.left), top)),
                                  frame_->FromDIP(wxSize(PixelsOf(place.width), PixelsOf(place.height)))));
  }
  // The tree hides a list under it.
  const bool treeShown = form_.TransPackTree.Visible;
  const bool listShown = form_.lvInfoObjectList.Visible && !treeShown;
  if (listShown && !listShown_) list_.Window().SetSize(content_->GetClientSize());
  listShown_ = listShown;
  tree_.Window().Show(treeShown);
  list_.Window().Show(listShown);
}

void MainWindow::Apply() {
  if (frame_->GetTitle() != ToWx(form_.Caption.Get())) frame_->SetTitle(ToWx(form_.Caption.Get()));
  ApplyMenus();
  toolbar_.Apply();
  statusLine_.Apply();
  tree_.ApplyChanges();
  list_.ApplyChanges();
  PlaceViews();
}

void MainWindow::ApplyMenus() {
  wxMenuBar& bar = *frame_->GetMenuBar();
  for (std::size_t i = 0; i < menus_.size(); ++i) {
    const MenuItem& menu = *form_.MenuBar()[i];
    menus_[i].Apply();
    if (bar.GetMenuLabel(i) != MenuLabel(menu)) bar.SetMenuLabel(i, MenuLabel(menu));
    if (bar.IsEnabledTop(i) != menu.Enabled.Get()) bar.EnableTop(i, menu.Enabled);
  }
}

}  // namespace qb
