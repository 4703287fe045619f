#pragma once

#include "ui/frmAttributeTranslation.h"
#include "wx/DialogWindow.h"

namespace qb {

/// Draws the form for attribute values.
class AttributeWindow : public DialogWindow {
 public:
  AttributeWindow(frmAttributeTranslation& form, wxWindow* parent);
};

}  // namespace qb
