#include "ui/Toolkit.h"

#include <utility>

#include "ui/Forms.h"

namespace qb {
namespace {
std::unique_ptr<Toolkit> installed;
}  // namespace

Toolkit& TheToolkit() {
  return *installed;
}

std::unique_ptr<Toolkit> InstallToolkit(std::unique_ptr<Toolkit> toolkit) {
  return std::exchange(installed, std::move(toolkit));
}

bool RaiseUnloadEvents(Form& form, int reason) {
  if (form.QueryUnload && form.QueryUnload(reason)) return false;
  if (form.Unload) form.Unload();
  form.Visible = false;
  TheForms().Unloaded(form);
  return true;
}

}  // namespace qb
