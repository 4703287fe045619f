#include "workflow/RecentFiles.h"

#include "foundation/OrbQBCommonFunctionsMod.h"
#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"
#include "workflow/TranslateMod.h"

namespace qb {

bool IsInRecentFiles(std::string_view path) {
  auto& form = Default<frmQBTranslator>();
  for (int i = 1; i <= frmQBTranslator::kRecentFiles; ++i) {
    if (StripMenuAccess(form.mniFileRecent(i).Caption.Get()) == path) return true;
  }
  return false;
}

void AddRecentFile(std::string_view path, bool force) {
  if (!force && IsInRecentFiles(path)) return;
  if (path.empty() || path == "-") return;
  ++gRecentCount;
  auto& form = Default<frmQBTranslator>();
  form.mniSepRec.Visible = true;
  if (gRecentCount <= frmQBTranslator::kRecentFiles) form.mniFileRecent(gRecentCount).Visible = true;
  for (int i = frmQBTranslator::kRecentFiles; i >= 2; --i) {
    const std::string above = StripMenuAccess(form.mniFileRecent(i - 1).Caption.Get());
    form.mniFileRecent(i).Caption = "&" + std::to_string(i) + " " + above;
  }
  form.mniFileRecent(1).Caption = "&1 " + StripMenuAccess(path);
}

}  // namespace qb
