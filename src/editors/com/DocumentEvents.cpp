#include "editors/com/DocumentEvents.h"

#include <olectl.h>

#include <utility>

#include "editors/com/EventSink.h"
#include "editors/com/MemberCall.h"
#include "platform/win32/ComFailure.h"

namespace qb {
namespace {

constexpr int kMostListeners = 1000;  // kinds of them; no document has so many
constexpr const char* kSubject = "events of a document";

/// Where a listener is taken, and what it is told.
struct Connection {
  ComPtr<IConnectionPoint> point;
  EventNumbers events;
};

/// The first kind of listener that the library describes.
Connection FirstKnown(const BridgeLibrary& library, IConnectionPointContainer& container) {
  ComPtr<IEnumConnectionPoints> points;
  CheckCom(container.EnumConnectionPoints(points.GetAddressOf()), kSubject);
  for (int i = 0; i < kMostListeners; ++i) {
    ComPtr<IConnectionPoint> point;
    if (points->Next(1, point.GetAddressOf(), nullptr) != S_OK) break;
    IID listener{};
    CheckCom(point->GetConnectionInterface(&listener), kSubject);
    if (const auto events = EventsByListener(*library.types.Get(), listener)) return {point, *events};
  }
  RaiseComFailure(CONNECT_E_NOCONNECTION, kSubject);
}

Connection ConnectionOf(const BridgeLibrary& library, IUnknown& object) {
  ComPtr<IConnectionPointContainer> container;
  CheckCom(object.QueryInterface(IID_IConnectionPointContainer, Into(container)), kSubject);
  if (!library.events) return FirstKnown(library, *container.Get());
  Connection connection{{}, *library.events};
  CheckCom(container->FindConnectionPoint(connection.events.listener, connection.point.GetAddressOf()),
           kSubject);
  return connection;
}

}  // namespace

DocumentEvents::DocumentEvents(const BridgeLibrary& library, IUnknown& object,
                               std::weak_ptr<IBridgeDocument> document) {
  MemberCall call;
  const Connection connection = ConnectionOf(library, object);
  sink_ = new EventSink(connection.events, std::move(document));
  point_ = connection.point;
  call.Finish(point_->Advise(sink_.Get(), &cookie_), kSubject);
  sink_->Begin();
}

DocumentEvents::~DocumentEvents() {
  sink_->Stop();
  point_->Unadvise(cookie_);  // a document that has gone has no listeners either
}

}  // namespace qb
