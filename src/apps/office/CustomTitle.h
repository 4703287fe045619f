#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <optional>
#include <string>

#include "apps/office/Uno.h"

namespace qb::office {

/// The document's custom property "Title", which is not the title that the office shows among its own
/// properties. Nothing if there is none, or one that is not a text. Only inside a call on the office's main
/// thread.
std::optional<std::string> CustomTitle(const Reference<com::sun::star::frame::XModel>& model);

/// Creates or changes it. The document asks to be saved at its closing only if it did before. Only inside a
/// call on the office's main thread.
void SetCustomTitle(const Reference<com::sun::star::frame::XModel>& model, const std::string& title);

}  // namespace qb::office
