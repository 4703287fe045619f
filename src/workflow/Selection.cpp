#include "workflow/Selection.h"

#include <string_view>

#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {
constexpr std::string_view kRootKey = "@ROOT";
}  // namespace

std::string GetSelectionRawKey() {
  auto& form = Default<frmQBTranslator>();
  if (gViewDetailed) {
    const ListRow* row = form.lvInfoObjectList.SelectedItem();
    return row != nullptr ? row->Key() : std::string();
  }
  const TreeNode* node = form.TransPackTree.SelectedItem();
  return node != nullptr ? node->Key() : std::string();
}

std::string GetKeyFromSelection() {
  const std::string rawKey = GetSelectionRawKey();
  std::string key = rawKey == kRootKey ? std::string() : rawKey.substr(0, rawKey.find('_'));
  Trace(2, "TranslateMod", "GetKeyFromSelection", "Selection is {}", key);
  return key;
}

std::string GetComponentFromSelection(bool blank) {
  const std::string rawKey = GetSelectionRawKey();
  if (rawKey == kRootKey) return {};
  const std::size_t separator = rawKey.find('_');
  if (separator != std::string::npos) return rawKey.substr(separator + 1);
  return blank ? std::string() : rawKey;
}

}  // namespace qb
