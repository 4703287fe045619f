#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <string>

#include "apps/office/Uno.h"

namespace qb::office {

/// Writes the document to `copy` as `ReadLinks` can read it, with the addresses relative to the document's
/// own place. It is the one way to see ten thousand links within a second; asking for each takes half a
/// minute. The document stays as it is. `kind` is that of the document. Only inside a call on the office's
/// main thread.
void StoreForLinks(const Reference<uno::XComponentContext>& context,
                   const Reference<com::sun::star::frame::XModel>& model, const std::string& kind,
                   const std::string& copy);

}  // namespace qb::office
