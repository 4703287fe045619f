#pragma once

#include <memory>

#include "editors/DocumentBridge.h"
#include "editors/com/BridgeLibrary.h"
#include "platform/win32/ComHeaders.h"

namespace qb {

class EventSink;

/// Listens to one document of the library and raises its events on `document`, as long as this lives. Events
/// that come before the listener stands are raised by the next turn of the event loop.
class DocumentEvents {
 public:
  /// Raises if the library's document takes no listener.
  DocumentEvents(const BridgeLibrary& library, IUnknown& object, std::weak_ptr<IBridgeDocument> document);
  DocumentEvents(const DocumentEvents&) = delete;
  DocumentEvents& operator=(const DocumentEvents&) = delete;
  ~DocumentEvents();

 private:
  ComPtr<EventSink> sink_;
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace qb
