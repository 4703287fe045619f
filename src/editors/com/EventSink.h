#pragma once

#include <memory>
#include <vector>

#include "editors/DocumentBridge.h"
#include "editors/com/BridgeLibrary.h"
#include "platform/win32/ComHeaders.h"

namespace qb {

/// The listener that a document of the library calls. Lives as long as anyone refers to it, which may be
/// longer than the document that it tells.
class EventSink : public IDispatch {
 public:
  EventSink(const EventNumbers& events, std::weak_ptr<IBridgeDocument> document);
  EventSink(const EventSink&) = delete;
  EventSink& operator=(const EventSink&) = delete;

  /// Up to here events wait; from here on they are raised as they come. Those that wait are raised by the
  /// next turn of the event loop.
  void Begin();
  /// From here on nothing is raised.
  void Stop() { document_.reset(); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID unused, LPOLESTR* names, UINT count, LCID language,
                                          DISPID* members) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID unused, LCID language, WORD flags,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* failure,
                                   UINT* argument) override;

 private:
  virtual ~EventSink() = default;
  HRESULT Tell(DISPID event, EXCEPINFO* failure);
  void Raise(DISPID event);
  void RaiseWaiting();
  static void CALLBACK OnTurn(HWND window, UINT message, UINT_PTR timer, DWORD time);

  ULONG references_ = 0;
  EventNumbers events_;
  std::weak_ptr<IBridgeDocument> document_;
  bool begun_ = false;
  std::vector<DISPID> waiting_;
};

}  // namespace qb
