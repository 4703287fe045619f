#pragma once

#include <functional>
#include <memory>
#include <typeindex>
#include <vector>

#include "ui/Form.h"

namespace qb {

/// The forms that are loaded, in the order in which they were. Default instances come to life at first touch.
class Forms {
 public:
  /// Binds the events of a form that is being loaded. Set once by the workflow.
  std::function<void(Form&)> Binder;

  /// The process-wide instance of a form; the first touch, and the first after an unload, makes and loads it.
  template <class AnyForm>
  AnyForm& Default() {
    const std::type_index type = typeid(AnyForm);
    for (const Instance& instance : defaults_) {
      if (instance.type == type) return static_cast<AnyForm&>(*instance.form);
    }
    auto made = std::make_unique<AnyForm>();
    AnyForm& form = *made;
    defaults_.push_back({type, std::move(made)});
    Load(form);
    return form;
  }

  /// Whether the default instance of a form exists; asking does not make it.
  template <class AnyForm>
  bool HasDefault() const {
    for (const Instance& instance : defaults_) {
      if (instance.type == std::type_index(typeid(AnyForm))) return true;
    }
    return false;
  }

  /// Binds the events of a form and raises its load event.
  void Load(Form& form);

  /// Takes an unloaded form off the list. A default instance lives on until `Clear`, for the events that run
  /// in it.
  void Unloaded(Form& form);

  std::vector<Form*> Loaded() const { return loaded_; }

  /// Drops everything, the binder too.
  void Clear();

 private:
  struct Instance {
    std::type_index type;
    std::unique_ptr<Form> form;
  };
  std::vector<Instance> defaults_;
  std::vector<std::unique_ptr<Form>> retired_;
  std::vector<Form*> loaded_;
};

Forms& TheForms();

/// Short for `TheForms().Default<AnyForm>()`.
template <class AnyForm>
AnyForm& Default() {
  return TheForms().Default<AnyForm>();
}

}  // namespace qb
