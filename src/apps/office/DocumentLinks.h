#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <string>

#include "apps/office/Uno.h"

namespace qb::office {

/// The document as `ReadLinks` can read it, with the addresses relative to the file `base`, which need not be
/// there. It is the one way to see ten thousand links within a second; asking for each takes half a minute.
/// Nothing is written to a disk: a full one would take the office down. The document stays as it is. `kind`
/// is that of the document. Only inside a call on the office's main thread.
std::string TextForLinks(const Reference<uno::XComponentContext>& context,
                         const Reference<com::sun::star::frame::XModel>& model, const std::string& kind,
                         const std::string& base);

}  // namespace qb::office
