#include "editors/com/DocumentEvents.h"

#include <utility>

#include "editors/com/EventSink.h"
#include "editors/com/MemberCall.h"
#include "platform/win32/ComFailure.h"

namespace qb {
namespace {

constexpr const char* kSubject = "events of a document";

}  // namespace

DocumentEvents::DocumentEvents(const BridgeLibrary& library, IUnknown& object,
                               std::weak_ptr<IBridgeDocument> document)
    : sink_(new EventSink(library, std::move(document))) {
  ComPtr<IConnectionPointContainer> container;
  CheckCom(object.QueryInterface(IID_IConnectionPointContainer, &container), kSubject);
  CheckCom(container->FindConnectionPoint(library.events, point_.GetAddressOf()), kSubject);
  MemberCall call;
  call.Finish(point_->Advise(sink_.Get(), &cookie_), kSubject);
  sink_->Begin();
}

DocumentEvents::~DocumentEvents() {
  sink_->Stop();
  point_->Unadvise(cookie_);  // a document that has gone has no listeners either
}

}  // namespace qb
