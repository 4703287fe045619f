#include "workflow/AttributeDialog.h"

#include "foundation/CTrace.h"
#include "ui/Toolkit.h"
#include "workflow/WindowEvents.h"

namespace qb {

void AttributesLoaded(frmAttributeTranslation& form) {
  FormLoaded(form);
  form.btnDefault.Default = true;
  for (TextBox* field :
       {&form.AttributeName, &form.SourceValue, &form.TargetValue, &form.PreviousTranslation}) {
    field->Text = std::string();
  }
}

void AttributeSourceCopied(frmAttributeTranslation& form) {
  form.TargetValue.Text = form.SourceValue.Text;
}

void AttributePreviousReused(frmAttributeTranslation& form) {
  form.TargetValue.Text = form.PreviousTranslation.Text;
}

void AttributeDefaultPressed(frmAttributeTranslation& form) {
  if (form.TargetValue.Text.Get().empty()) {
    form.PreviousTranslation.Text.Get().empty() ? AttributeSourceCopied(form) : AttributePreviousReused(form);
  }
  form.btnDefault.Default = false;
  form.btnOK.Default = true;
}

void AttributesConfirmed(frmAttributeTranslation& form) {
  TheToolkit().Unload(form, Form::kUnloadByCode);
}

void AttributesCancelled(frmAttributeTranslation& form) {
  form.TargetValue.Text = std::string();
  TheToolkit().Unload(form, Form::kUnloadByCode);
}

void AttributesUnloaded(const frmAttributeTranslation& form) {
  constexpr std::string_view kProcedure = "Form_Unload";
  Trace(2, form.Name(), kProcedure, "->");
  Trace(2, form.Name(), kProcedure, "Returned Translation: {}", form.TargetValue.Text.Get());
  Trace(2, form.Name(), kProcedure, "<-");
}

}  // namespace qb
