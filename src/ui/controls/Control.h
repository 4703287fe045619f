#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace qb {

class Form;

/// Twips: 1440 to the inch, 15 to a pixel of a 96-dpi screen.
struct Bounds {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const Bounds&) const = default;
};

struct Font {
  std::string name;   ///< empty: the desktop's own
  double points = 0;  ///< 0: the desktop's own
  int characterSet = 1;
  bool bold = false;
  bool operator==(const Font&) const = default;
};

/// A control without a toolkit: data that the renderer draws and event slots that it calls. Every change is
/// noticed.
class Control {
 public:
  /// Registers the control with its form, behind those made before it.
  Control(Form& form, std::string_view name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& Name() const { return name_; }
  Form& Owner() const { return form_; }

  /// Whether the control has a font of its own to set.
  virtual bool HasFont() const { return true; }

  /// Tells the renderer that something about this control changed.
  void Notify();

 private:
  Form& form_;
  std::string name_;
};

/// A value of a control; giving it another one is noticed.
template <class Value>
class Property {
 public:
  Property(Control& control, Value value) : control_(control), value_(std::move(value)) {}
  Property(const Property&) = delete;

  Property& operator=(const Property& other) { return *this = other.value_; }
  Property& operator=(Value value) {
    if (!(value_ == value)) {
      value_ = std::move(value);
      control_.Notify();
    }
    return *this;
  }
  operator const Value&() const { return value_; }
  const Value& Get() const { return value_; }

 private:
  Control& control_;
  Value value_;
};

/// What every visible control has.
class VisibleControl : public Control {
 public:
  using Control::Control;

  Property<bool> Visible{*this, true};
  Property<bool> Enabled{*this, true};
  Property<Bounds> Place{*this, Bounds{}};
  Property<Font> TextFont{*this, Font{}};
};

}  // namespace qb
