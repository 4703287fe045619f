#pragma once

#include "ui/frmAttributeTranslation.h"

namespace qb {

/// What the form for attribute values does at its events.
void AttributesLoaded(frmAttributeTranslation& form);
void AttributeSourceCopied(frmAttributeTranslation& form);
void AttributePreviousReused(frmAttributeTranslation& form);
/// Fills the target value, and makes OK the button that the next Enter presses.
void AttributeDefaultPressed(frmAttributeTranslation& form);
void AttributesConfirmed(frmAttributeTranslation& form);
/// An empty target value tells a caller of the cancel.
void AttributesCancelled(frmAttributeTranslation& form);
void AttributesUnloaded(const frmAttributeTranslation& form);

}  // namespace qb
