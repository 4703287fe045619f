#pragma once

#include <wx/frame.h>
#include <wx/panel.h>

#include <memory>
#include <vector>

#include "ui/frmQBTranslator.h"
#include "wx/FormWindow.h"
#include "wx/ListViewWindow.h"
#include "wx/MenuRenderer.h"
#include "wx/StatusLine.h"
#include "wx/TableTreeWindow.h"
#include "wx/ToolbarRenderer.h"

namespace qb {

/// Draws the main window.
class MainWindow : public FormWindow {
 public:
  explicit MainWindow(frmQBTranslator& form);

  wxWindow& Window() override { return *frame_; }
  wxWindow* WindowOf(const Control& control) override;
  void Show() override;

 protected:
  void Apply() override;

 private:
  void MakeMenuBar();
  void BindEvents();
  void OnMenu(const wxCommandEvent& event);
  void OnSize();
  void MeasureForm();
  void PlaceViews();
  void ApplyMenus();

  frmQBTranslator& form_;
  wxFrame* frame_;
  std::vector<MenuRenderer> menus_;
  ToolbarRenderer toolbar_;
  StatusLine statusLine_;
  wxPanel* content_;
  TableTreeWindow tree_;
  ListViewWindow list_;
  wxSize measured_;
  bool settled_ = false;  ///< the window has been on screen, so a new size is a resize
  bool listShown_ = false;
};

}  // namespace qb
