#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/controls/Control.h"

namespace qb {

/// A line of text with a list of suggestions.
class ComboBox : public VisibleControl {
 public:
  using VisibleControl::VisibleControl;

  void AddItem(std::string_view item) {
    items_.emplace_back(item);
    Notify();
  }
  const std::vector<std::string>& Items() const { return items_; }

  Property<std::string> Text{*this, {}};

 private:
  std::vector<std::string> items_;
};

/// A list of texts, of which one can be selected.
class ListBox : public VisibleControl {
 public:
  using VisibleControl::VisibleControl;

  void AddItem(std::string_view item) {
    items_.emplace_back(item);
    Notify();
  }
  const std::vector<std::string>& Items() const { return items_; }

  Property<int> ListIndex{*this, -1};  ///< from 0; -1 for none
  std::function<void()> Click;

 private:
  std::vector<std::string> items_;
};

/// A frame with a heading around controls that belong together.
class Frame : public VisibleControl {
 public:
  Frame(Form& form, std::string_view name, std::string_view caption)
      : VisibleControl(form, name), Caption(*this, std::string(caption)) {}

  Property<std::string> Caption;
};

/// A page that is shown while its tab is selected.
class TabPage : public VisibleControl {
 public:
  using VisibleControl::VisibleControl;

  bool HasFont() const override { return false; }
};

/// A line between controls.
class Line : public VisibleControl {
 public:
  using VisibleControl::VisibleControl;

  bool HasFont() const override { return false; }
};

/// The tabs above pages.
class TabStrip : public VisibleControl {
 public:
  struct Tab {
    Tab(TabStrip& strip, std::string_view caption)
        : Caption(strip, std::string(caption)), ToolTipText(strip, {}) {}

    Property<std::string> Caption;
    Property<std::string> ToolTipText;
  };

  using VisibleControl::VisibleControl;

  Tab& AddTab(std::string_view caption) { return tabs_.emplace_back(*this, caption); }
  /// `index` counts from 1; raises 9 beyond the last.
  Tab& Tabs(int index);
  int TabCount() const { return static_cast<int>(tabs_.size()); }

  int SelectedIndex() const { return selected_; }
  /// Selects a tab, counted from 1, and raises the click event. Raises 9 beyond the last.
  void Select(int index);

  std::function<void()> Click;

 private:
  std::deque<Tab> tabs_;
  int selected_ = 1;
};

}  // namespace qb
