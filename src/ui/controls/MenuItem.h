#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/controls/Control.h"

namespace qb {

/// An entry of a menu, a submenu or the bar. An `&` in the caption stands before the access key.
class MenuItem : public Control {
 public:
  /// `shortcut` is written as in "Ctrl+O" or "F5".
  MenuItem(Form& form, std::string_view name, std::string_view caption = {}, std::string_view shortcut = {});

  /// An entry in the menu of `parent`.
  MenuItem(MenuItem& parent, std::string_view name, std::string_view caption = {},
           std::string_view shortcut = {});

  bool HasFont() const override { return false; }
  bool IsSeparator() const { return Caption.Get() == kSeparator; }
  const std::string& Shortcut() const { return shortcut_; }
  const std::vector<MenuItem*>& Entries() const { return entries_; }

  /// The caption of a separator.
  static constexpr std::string_view kSeparator = "-";

  Property<std::string> Caption;
  Property<bool> Enabled{*this, true};
  Property<bool> Visible{*this, true};
  Property<bool> Checked{*this, false};
  std::function<void()> Click;

 private:
  std::string shortcut_;
  std::vector<MenuItem*> entries_;
};

}  // namespace qb
