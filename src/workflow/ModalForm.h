#pragma once

#include <algorithm>

#include "ui/Forms.h"
#include "ui/Toolkit.h"

namespace qb {

/// Shows a new instance of a form modally and releases it after it closed.
template <class AnyForm>
void ShowNewModal() {
  struct Instance {
    AnyForm form;
    ~Instance() {
      const auto loaded = TheForms().Loaded();
      if (std::find(loaded.begin(), loaded.end(), &form) != loaded.end()) {
        TheToolkit().Unload(form, Form::kUnloadByCode);
      }
    }
  } instance;
  TheForms().Load(instance.form);
  TheToolkit().ShowModal(instance.form);
}

}  // namespace qb
