#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/controls/Control.h"

namespace qb {

class Label : public VisibleControl {
 public:
  Label(Form& form, std::string_view name, std::string_view caption = {})
      : VisibleControl(form, name), Caption(*this, std::string(caption)) {}

  Property<std::string> Caption;
};

class Button : public VisibleControl {
 public:
  Button(Form& form, std::string_view name, std::string_view caption = {})
      : VisibleControl(form, name), Caption(*this, std::string(caption)) {}

  Property<std::string> Caption;
  Property<bool> Default{*this, false};  ///< Enter presses it
  Property<bool> Cancel{*this, false};   ///< Escape presses it
  std::function<void()> Click;
};

class TextBox : public VisibleControl {
 public:
  using VisibleControl::VisibleControl;

  Property<std::string> Text{*this, {}};
  Property<bool> Locked{*this, false};  ///< the user can read and copy the text but not change it
  /// What is selected when the box comes on screen, in characters from 0. What the user selects is not told.
  Property<int> SelStart{*this, 0};
  Property<int> SelLength{*this, 0};
};

/// A bar that fills from `Min` to `Max`.
class ProgressBar : public VisibleControl {
 public:
  using VisibleControl::VisibleControl;

  bool HasFont() const override { return false; }

  Property<int> Min{*this, 0};
  Property<int> Max{*this, 100};
  Property<int> Value{*this, 0};
};

/// A picture, named by its icon.
class Image : public VisibleControl {
 public:
  /// What a drag of the picture ended in.
  static constexpr int kDropNone = 0;
  static constexpr int kDropCopy = 1;
  static constexpr int kDropMove = 2;

  Image(Form& form, std::string_view name, std::string_view icon) : VisibleControl(form, name), icon_(icon) {}

  bool HasFont() const override { return false; }
  const std::string& Icon() const { return icon_; }

  /// Called at the end of a drag with what it ended in; absent: the picture cannot be dragged.
  std::function<void(int)> DragEnded;

 private:
  std::string icon_;
};

/// A status line: the simple text, or the panel's while that is empty.
class StatusBar : public VisibleControl {
 public:
  using VisibleControl::VisibleControl;

  Property<std::string> SimpleText{*this, {}};
  Property<std::string> PanelText{*this, {}};
  std::function<void()> DblClick;
};

class Timer : public Control {
 public:
  Timer(Form& form, std::string_view name, int interval) : Control(form, name), Interval(*this, interval) {}

  bool HasFont() const override { return false; }

  Property<int> Interval;  ///< milliseconds; 0 never ticks
  Property<bool> Enabled{*this, true};
  std::function<void()> Tick;
};

/// Icons by key; a picture is also known by its position from 0.
class ImageList : public Control {
 public:
  ImageList(Form& form, std::string_view name, std::vector<std::string> keys)
      : Control(form, name), keys_(std::move(keys)) {}

  bool HasFont() const override { return false; }
  const std::vector<std::string>& Keys() const { return keys_; }

 private:
  std::vector<std::string> keys_;
};

}  // namespace qb
