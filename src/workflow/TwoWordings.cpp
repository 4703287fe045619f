#include "workflow/TwoWordings.h"

#include "foundation/modMultiLanguage.h"
#include "model/CPxfFile.h"

namespace qb {

std::string TwoWordings::Text() const {
  if (translation == localization) return QBL_LText(translation);
  return QBL_LText(gPxfFile != nullptr && gPxfFile->IsLocalizationPackage() ? localization : translation);
}

}  // namespace qb
