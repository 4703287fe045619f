#include "foundation/Product.h"

#include <fmt/format.h>

#include "platform/Platform.h"

namespace qb {

std::string ProductVersion() {
  return fmt::format("{}.{}.{}", QB_VERSION_MAJOR, QB_VERSION_MINOR, QB_VERSION_REVISION);
}

int MsgBox(std::string_view text, int style) {
  MessageBoxRequest request;
  request.text = text;
  request.style = style;
  return ThePlatform().messageBoxes->Show(request);
}

int MsgBox(std::string_view text, int style, std::string_view title) {
  MessageBoxRequest request;
  request.text = text;
  request.style = style;
  request.title = std::string(title);
  return ThePlatform().messageBoxes->Show(request);
}

}  // namespace qb
