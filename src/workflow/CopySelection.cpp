#include "workflow/CopySelection.h"

#include "foundation/OrbQBCommonFunctionsMod.h"
#include "platform/Dialogs.h"
#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"

namespace qb {

void QbtCopy() {
  if (!TheForms().HasDefault<frmQBTranslator>()) return;
  const TreeNode* node = Default<frmQBTranslator>().TransPackTree.SelectedItem();
  if (node != nullptr) CopyToClipboard(node->Text(), Clipboard::kTextFormat);
}

}  // namespace qb
