#include "workflow/HelpMod.h"

#include <string>

#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"
#include "workflow/TranslateMod.h"

namespace qb {

void SetStatusText(std::string_view text) {
  Default<frmQBTranslator>().sbcStatusBar.SimpleText = std::string(text);
}

void QbtSetViewDetailed(bool detailed) {
  gViewDetailed = detailed;
  auto& form = Default<frmQBTranslator>();
  form.mniDetailedView.Checked = detailed;
  form.mniShortView.Checked = !detailed;
  if (detailed) {
    form.lvInfoObjectList.Visible = true;
    form.TransPackTree.Visible = false;
  } else {
    form.lvInfoObjectList.Visible = false;
    form.TransPackTree.Visible = true;
  }
}

}  // namespace qb
