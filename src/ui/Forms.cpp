#include "ui/Forms.h"

#include <algorithm>

namespace qb {

void Forms::Load(Form& form) {
  loaded_.push_back(&form);
  if (Binder) Binder(form);
  if (form.Load) form.Load();
}

void Forms::Unloaded(Form& form) {
  std::erase(loaded_, &form);
  const auto instance = std::find_if(defaults_.begin(), defaults_.end(),
                                     [&](const Instance& each) { return each.form.get() == &form; });
  if (instance == defaults_.end()) return;
  retired_.push_back(std::move(instance->form));
  defaults_.erase(instance);
}

void Forms::Clear() {
  loaded_.clear();
  defaults_.clear();
  retired_.clear();
  Binder = nullptr;
}

Forms& TheForms() {
  static Forms forms;
  return forms;
}

}  // namespace qb
