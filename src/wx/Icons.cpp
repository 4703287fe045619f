#include "wx/Icons.h"

#include <wx/icon.h>

#include <algorithm>

#include "wx/EmbeddedIcons.h"

namespace qb {

wxBitmapBundle IconBitmap(std::string_view key, int size) {
  const auto icon = std::find_if(kEmbeddedIcons.begin(), kEmbeddedIcons.end(),
                                 [&](const EmbeddedIcon& each) { return each.key == key; });
  if (icon == kEmbeddedIcons.end()) return {};
  return wxBitmapBundle::FromSVG(icon->svg, wxSize(size, size));
}

std::vector<wxBitmapBundle> IconBitmaps(const std::vector<std::string>& keys, int size) {
  std::vector<wxBitmapBundle> bitmaps;
  bitmaps.reserve(keys.size());
  for (const std::string& key : keys) bitmaps.push_back(IconBitmap(key, size));
  return bitmaps;
}

wxIconBundle ProgramIcons() {
  wxIconBundle icons;
  for (const int size : {16, 24, 32, 48, 64, 128}) {
    icons.AddIcon(IconBitmap("ICON_QBT", size).GetIcon(wxSize(size, size)));
  }
  return icons;
}

}  // namespace qb
