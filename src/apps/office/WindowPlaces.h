#pragma once

#include <com/sun/star/awt/Rectangle.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <vector>

#include "apps/office/Uno.h"

namespace qb::office {

enum class Arrangement { kOneAboveTheOther = 2, kSideBySide = 3 };

/// The screen in `count` equal parts.
std::vector<com::sun::star::awt::Rectangle> Parts(const com::sun::star::awt::Rectangle& screen, int count,
                                                  Arrangement arrangement);

/// Gives the document's window that place on the screen and brings it to the front. The window manager may
/// take a while, and may want to be asked again. Only inside a call on the office's main thread.
void PlaceWindow(const Reference<com::sun::star::frame::XModel>& model,
                 const com::sun::star::awt::Rectangle& place);

/// Whether the document's window has that place.
bool HasPlace(const Reference<com::sun::star::frame::XModel>& model,
              const com::sun::star::awt::Rectangle& place);

}  // namespace qb::office
