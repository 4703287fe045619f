#pragma once

#include <memory>
#include <string>
#include <vector>

#include "editors/libreoffice/Office.h"
#include "platform/Applications.h"

namespace qb {

/// What a document's application is asked for by name: "Name" and, of a presentation, "ActivePresentation"
/// with its "Slides", whose elements have "Hyperlinks".
std::shared_ptr<AutomationObject> MakeHostApplication(const std::shared_ptr<Office>& office,
                                                      const std::shared_ptr<OfficeDocument>& document);

/// What a document of an application is asked for by name: "Hyperlinks", whose elements have an "Address".
std::shared_ptr<AutomationObject> MakeHostDocument(const std::shared_ptr<Office>& office,
                                                   const std::shared_ptr<OfficeDocument>& document);

/// The addresses of all links in their order.
std::vector<std::string> AllAddresses(Office& office, OfficeDocument& document);

}  // namespace qb
