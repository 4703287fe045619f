#include "workflow/FileChooser.h"

#include "foundation/OrbQBCommonFunctionsMod.h"
#include "foundation/modMultiLanguage.h"
#include "workflow/TwoWordings.h"

namespace qb {
namespace {

constexpr TwoWordings kUsualTitle{
    "QB.QBTRANSLAT.TRANSLATEMOD.000.GETMULTIMEDIAFI001675.T.00026|Select a file to check in as translation",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.GETMULTIMEDIAFI001675.T.00115|Select a file to check in as localization"};

}  // namespace

std::string GetMultimediaFile(std::string_view extension, bool multiSelect, std::string_view title) {
  OpenFileArguments arguments;
  arguments.title = title.empty() ? kUsualTitle.Text() : std::string(title);
  arguments.defaultExtension = (extension.starts_with('.') ? "*" : "") + std::string(extension);
  arguments.filter =
      arguments.defaultExtension +
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.GETMULTIMEDIAFI001675.T.00027| Files |") +
      arguments.defaultExtension +
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.GETMULTIMEDIAFI001675.T.00028||All Files (*.*)|*.*");
  arguments.multiSelect = multiSelect;
  return VBGetOpenFileName(arguments) ? arguments.fileName : std::string();
}

}  // namespace qb
