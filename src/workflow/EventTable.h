#pragma once

#include "ui/Form.h"

namespace qb {

/// Binds every event of a form to its command.
void BindEvents(Form& form);

}  // namespace qb
