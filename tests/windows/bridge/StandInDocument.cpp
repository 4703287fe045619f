#include "windows/bridge/StandInDocument.h"

#include <olectl.h>

#include "windows/bridge/StandInBridgeObjects.h"
#include "windows/bridge/StandInHost.h"

namespace qb {
namespace {

// The numbers that the type library gives to the events at positions 4 and 5.
constexpr DISPID kClosed = 31;
constexpr DISPID kSaved = 2;

/// Raises what a listener answers.
void Tell(IDispatch& listener, DISPID event) {
  DISPPARAMS none{};
  EXCEPINFO failure{};
  const HRESULT result = listener.Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                                         nullptr, &failure, nullptr);
  if (result != DISP_E_EXCEPTION) return CheckCom(result, "event");
  ComText source;
  ComText description;
  *source.Out() = failure.bstrSource;
  *description.Out() = failure.bstrDescription;
  throw RuntimeError(FailureNumber(failure.scode), source.Text(), description.Text());
}

/// What the small objects of this file share: they count references and themselves.
template <class Interface>
class Counted : public Interface {
 public:
  Counted() { ++theStandIn.objects; }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override {
    *object = nullptr;
    if (identifier != IID_IUnknown && identifier != __uuidof(Interface)) return E_NOINTERFACE;
    AddRef();
    *object = static_cast<Interface*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~Counted() { --theStandIn.objects; }

 private:
  ULONG references_ = 0;
};

/// A place for listeners of a kind that the type library does not describe.
class StandInOtherPoint : public Counted<IConnectionPoint> {
 public:
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* events) override {
    *events = IID_IPropertyNotifySink;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown*, DWORD*) override { return CONNECT_E_CANNOTCONNECT; }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override { return CONNECT_E_NOCONNECTION; }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
};

class StandInPoints : public Counted<IEnumConnectionPoints> {
 public:
  explicit StandInPoints(std::vector<ComPtr<IConnectionPoint>> points) : points_(std::move(points)) {}
  HRESULT STDMETHODCALLTYPE Next(ULONG count, IConnectionPoint** points, ULONG*) override {
    if (count != 1 || next_ == points_.size()) return S_FALSE;
    *points = points_[next_].Get();
    if (!theStandIn.listsWithoutEnd) ++next_;
    (*points)->AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints**) override { return E_NOTIMPL; }

 private:
  std::vector<ComPtr<IConnectionPoint>> points_;
  std::size_t next_ = 0;
};

}  // namespace

StandInDocument::StandInDocument(const std::shared_ptr<IBridgeDocument>& scripted)
    : StandInObject(__uuidof(IStandInDocument), scripted) {
  scripted->OnPostClose = [this] { Fire(kClosed); };
  scripted->OnPostLocalSave = [this] { Fire(kSaved); };
}

StandInDocument::~StandInDocument() {
  Script().OnPostClose = nullptr;
  Script().OnPostLocalSave = nullptr;
}

void StandInDocument::Fire(DISPID event) {
  const ComPtr<IUnknown> alive = static_cast<IStandInDocument*>(this);
  const auto listeners = listeners_;
  for (const auto& [cookie, listener] : listeners) {
    for (const DISPID other : {7, 1, 5}) Tell(*listener.Get(), other);
    Tell(*listener.Get(), event);
    for (const DISPID other : {4, 6}) Tell(*listener.Get(), other);
  }
}

HRESULT StandInDocument::get_Host(IDispatch** host) {
  return Answer([&] { Give<StandInHost>(Script().Application(), host); });
}

HRESULT StandInDocument::get_HostPaper(IDispatch** paper) {
  return Answer([&] { Give<StandInHost>(Script().HostDocument(), paper); });
}

HRESULT StandInDocument::get_Notes(IStandInProperties** notes) {
  return Answer([&] { Give<StandInProperties>(Script().CustomProperties(), notes); });
}

HRESULT StandInDocument::get_Links(IDispatch** links) {
  return Answer([&] { Give<StandInTexts>(Script().Hyperlinks(), links); });
}

HRESULT StandInDocument::QueryInterface(REFIID identifier, void** object) {
  if (identifier == IID_IConnectionPointContainer) {
    *object = static_cast<IConnectionPointContainer*>(this);
  } else if (identifier == IID_IConnectionPoint) {
    *object = static_cast<IConnectionPoint*>(this);
  } else {
    return StandInObject::QueryInterface(identifier, object);
  }
  AddRef();
  return S_OK;
}

HRESULT StandInDocument::EnumConnectionPoints(IEnumConnectionPoints** points) {
  *points =
      new StandInPoints({ComPtr<IConnectionPoint>(new StandInOtherPoint), ComPtr<IConnectionPoint>(this)});
  (*points)->AddRef();
  return S_OK;
}

HRESULT StandInDocument::FindConnectionPoint(REFIID events, IConnectionPoint** point) {
  *point = nullptr;
  if (events != __uuidof(DStandInDocumentEvents)) return CONNECT_E_NOCONNECTION;
  return QueryInterface(IID_IConnectionPoint, reinterpret_cast<void**>(point));
}

HRESULT StandInDocument::GetConnectionInterface(IID* events) {
  *events = __uuidof(DStandInDocumentEvents);
  return S_OK;
}

HRESULT StandInDocument::GetConnectionPointContainer(IConnectionPointContainer** container) {
  return QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container));
}

HRESULT StandInDocument::Advise(IUnknown* listener, DWORD* cookie) {
  if (!theStandIn.takesListeners) return CONNECT_E_ADVISELIMIT;
  ComPtr<IDispatch> asked;
  if (FAILED(listener->QueryInterface(__uuidof(DStandInDocumentEvents), &asked)))
    return CONNECT_E_CANNOTCONNECT;
  *cookie = ++lastCookie_;
  listeners_[*cookie] = asked;
  if (theStandIn.closesWhileItTakesAListener) return Answer([&] { Fire(kClosed); });
  return S_OK;
}

HRESULT StandInDocument::Unadvise(DWORD cookie) {
  return listeners_.erase(cookie) == 1 ? S_OK : CONNECT_E_NOCONNECTION;
}

HRESULT StandInDocument::EnumConnections(IEnumConnections**) {
  return E_NOTIMPL;
}

}  // namespace qb
