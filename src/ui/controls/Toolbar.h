#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>

#include "ui/controls/Control.h"

namespace qb {

class Toolbar;

/// A button of a tool bar, or a separator if it has no image.
class ToolButton {
 public:
  ToolButton(Toolbar& toolbar, std::string_view key, std::string_view image);

  const std::string& Key() const { return key_; }
  /// Key of the icon in the tool bar's image list; empty for a separator.
  const std::string& Image() const { return image_; }
  bool IsSeparator() const { return image_.empty(); }

  Property<std::string> ToolTipText;
  Property<bool> Enabled;

 private:
  std::string key_;
  std::string image_;
};

class Toolbar : public VisibleControl {
 public:
  using VisibleControl::VisibleControl;

  bool HasFont() const override { return false; }
  ToolButton& AddButton(std::string_view key, std::string_view image);
  /// `index` counts from 1; raises 9 beyond the last.
  ToolButton& Buttons(int index);
  int ButtonCount() const { return static_cast<int>(buttons_.size()); }

  /// Called with the index of the clicked button, from 1.
  std::function<void(int)> ButtonClick;

 private:
  std::deque<ToolButton> buttons_;
};

}  // namespace qb
