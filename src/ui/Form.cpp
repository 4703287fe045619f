#include "ui/Form.h"

namespace qb {

Control::Control(Form& form, std::string_view name) : form_(form), name_(name) {
  if (static_cast<Control*>(&form) != this) form.controls_.push_back(this);
}

void Control::Notify() {
  if (form_.Observer != nullptr) form_.Observer->ControlChanged(*this);
}

Form::Form(std::string_view name, std::string_view caption)
    : Control(*this, name), Caption(*this, std::string(caption)) {
}

void Form::SetOwnFont(std::string_view fontName, int characterSet) {
  Font font = TextFont;
  font.name = fontName;
  font.characterSet = characterSet;
  TextFont = font;
}

void Form::SetControlFont(std::size_t index, std::string_view fontName, double points, int characterSet) {
  auto* control = dynamic_cast<VisibleControl*>(controls_.at(index));
  if (control == nullptr || !control->HasFont()) return;
  Font font = control->TextFont;
  font.name = fontName;
  font.points = points;
  font.characterSet = characterSet;
  control->TextFont = font;
}

}  // namespace qb
