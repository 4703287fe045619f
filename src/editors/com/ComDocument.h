#pragma once

#include <memory>
#include <string>

#include "editors/com/ComObject.h"
#include "editors/com/DocumentEvents.h"

namespace qb {

/// A document that the library has opened.
class ComDocument : public ComObject<IBridgeDocument> {
 public:
  using ComObject::ComObject;

  /// The document, listening to its events.
  static std::shared_ptr<ComDocument> Make(const std::shared_ptr<const BridgeLibrary>& library,
                                           const ComPtr<IUnknown>& object);

  std::shared_ptr<AutomationObject> Application() override;
  std::shared_ptr<AutomationObject> HostDocument() override;
  std::shared_ptr<IBridgeProperties> CustomProperties() override;
  std::shared_ptr<Collection<std::string>> Hyperlinks() override;

 private:
  std::unique_ptr<DocumentEvents> events_;
};

}  // namespace qb
