#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/modMultiLanguage.h"
#include "ui/controls/Control.h"

namespace qb {

class MenuItem;

/// Told of every change notice of a form's controls.
class FormObserver {
 public:
  virtual ~FormObserver() = default;
  virtual void ControlChanged(Control& control) = 0;
};

/// A form without a toolkit: a plain object that holds its controls. What its events do is bound by the
/// workflow.
class Form : public Control, public FormFonts {
 public:
  /// Why a form is asked to go.
  static constexpr int kUnloadByUser = 0;
  static constexpr int kUnloadByCode = 1;
  static constexpr int kUnloadByTaskManager = 3;
  static constexpr int kUnloadByOwner = 5;

  /// A key code and a shift state of `KeyDown`.
  static constexpr int kTabKey = 9;
  static constexpr int kCtrl = 2;

  explicit Form(std::string_view name, std::string_view caption = {});

  /// Sets every text of the form in the wording of translation, and of localization.
  virtual void QBL_InitLText() = 0;
  virtual void QBL_InitLText_Localization() { QBL_InitLText(); }

  const std::vector<Control*>& Controls() const { return controls_; }
  /// The entries of the menu bar, in order.
  const std::vector<MenuItem*>& MenuBar() const { return menuBar_; }

  Property<std::string> Caption;
  Property<bool> Visible{*this, false};  ///< set by the toolkit as it shows and hides the form
  Property<Font> TextFont{*this, Font{}};
  /// Outer size in twips, kept by the toolkit.
  Bounds Place;
  /// Whether it comes up in the middle of the screen, not of the window before it.
  bool OnScreenCentre = false;

  std::function<void()> Load;
  /// Asked with the reason before the form goes; true keeps it.
  std::function<bool(int)> QueryUnload;
  std::function<void()> Unload;
  std::function<void()> Resize;
  std::function<void(int)> KeyPress;  ///< character code
  /// Key code and shift state, before the control that has the focus gets the key.
  std::function<void(int, int)> KeyDown;

  FormObserver* Observer = nullptr;

  std::string FormName() const override { return Name(); }
  std::size_t ControlCount() const override { return controls_.size(); }
  void SetOwnFont(std::string_view fontName, int characterSet) override;
  void SetControlFont(std::size_t index, std::string_view fontName, double points, int characterSet) override;

 protected:
  void AddToMenuBar(std::initializer_list<MenuItem*> menus) { menuBar_.insert(menuBar_.end(), menus); }

 private:
  friend class Control;
  std::vector<Control*> controls_;
  std::vector<MenuItem*> menuBar_;
};

}  // namespace qb
