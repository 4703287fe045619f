#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

#include <string>
#include <string_view>
#include <vector>

namespace qb {

/// The drawing of an icon key, `size` device-independent pixels wide and high and sharp at every scale. Empty
/// for a key without a drawing.
wxBitmapBundle IconBitmap(std::string_view key, int size);

/// The drawings of a list of keys, by position.
std::vector<wxBitmapBundle> IconBitmaps(const std::vector<std::string>& keys, int size);

/// The program's own icon in the sizes that window managers ask for.
wxIconBundle ProgramIcons();

}  // namespace qb
