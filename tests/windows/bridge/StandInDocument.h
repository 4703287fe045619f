#pragma once

#include <map>

#include "StandInBridge.h"
#include "windows/bridge/StandInFillers.h"
#include "windows/bridge/StandInObject.h"

namespace qb {

#define FILLER(position)                                  \
  HRESULT STDMETHODCALLTYPE Filler##position() override { \
    return Stray(position);                               \
  }

/// A document that raises its events on its listeners, among others that nobody waits for.
class StandInDocument : public StandInObject<IStandInDocument, IBridgeDocument>,
                        public IConnectionPointContainer,
                        public IConnectionPoint {
 public:
  explicit StandInDocument(const std::shared_ptr<IBridgeDocument>& scripted);

  HRESULT STDMETHODCALLTYPE get_Host(IDispatch** host) override;
  HRESULT STDMETHODCALLTYPE get_HostPaper(IDispatch** paper) override;
  HRESULT STDMETHODCALLTYPE get_Notes(IStandInProperties** notes) override;
  HRESULT STDMETHODCALLTYPE get_Links(IDispatch** links) override;
  FILLERS_0_TO_27 FILLER(29) FILLER(31) FILLER(34)

      HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return StandInObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return StandInObject::Release(); }

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID events, IConnectionPoint** point) override;

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* events) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* listener, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

 private:
  ~StandInDocument() override;
  /// Raises one event, framed by all those that the program does not know. Raises what a listener answers.
  void Fire(DISPID event);

  std::map<DWORD, ComPtr<IDispatch>> listeners_;
  DWORD lastCookie_ = 0;
};

#undef FILLER

}  // namespace qb
