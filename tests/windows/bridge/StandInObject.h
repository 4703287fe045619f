#pragma once

#include <exception>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "editors/DocumentBridge.h"
#include "platform/win32/ComFailure.h"
#include "platform/win32/ComHeaders.h"
#include "platform/win32/ComValues.h"
#include "runtime/RuntimeError.h"

namespace qb {

/// What the stand-in of the Document Bridge has seen, and what it does beyond what a scripted office can say.
struct StandInState {
  long objects = 0;                 ///< how many of its objects are alive
  std::vector<std::string> strays;  ///< calls that the program must never make
  std::function<std::shared_ptr<IBridge>()> newOffice;
  std::map<std::string, VARIANT> contents;  ///< what a property gives instead, by its name
  bool takesListeners = true;
  bool closesWhileItTakesAListener = false;
  int busyFor = 0;               ///< as many calls of the office application itself are turned away
  bool listsByPosition = false;  ///< its lists have no enumerator
  bool listsWithoutEnd = false;  ///< its lists, of elements and of kinds of listeners, begin anew for ever
};
extern StandInState theStandIn;

/// Leaves the failure behind for the caller, as an automation object does.
HRESULT Refuse(const RuntimeError& error);

/// Runs the body of a member; what it raises is refused.
template <class Body>
HRESULT Answer(Body&& body) {
  try {
    std::forward<Body>(body)();
    return S_OK;
  } catch (const std::exception&) {
    PendingError before = std::exchange(Err, {});  // the program's own is no business of the library
    SetPendingErrorFromCurrentException();
    const PendingError error = std::exchange(Err, std::move(before));
    return Refuse(RuntimeError(error.Number, error.Source, error.Description));
  }
}

/// An object of the stand-in that stands for `Scripted`.
template <class Interface, class Scripted>
class StandInObject : public Interface {
 public:
  StandInObject(const IID& identifier, std::shared_ptr<Scripted> scripted)
      : identifier_(identifier), scripted_(std::move(scripted)) {
    ++theStandIn.objects;
  }
  StandInObject(const StandInObject&) = delete;
  StandInObject& operator=(const StandInObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override {
    *object = nullptr;
    if (identifier != IID_IUnknown && identifier != IID_IDispatch && identifier != identifier_) {
      return E_NOINTERFACE;
    }
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

  // The program goes by position, and so never comes this way.
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return Stray(-4); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return Stray(-3); }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return Stray(-2);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return Stray(-1);
  }

 protected:
  virtual ~StandInObject() { --theStandIn.objects; }

  Scripted& Script() { return *scripted_; }

  HRESULT Stray(int position) {
    theStandIn.strays.push_back(std::string(typeid(Interface).name()) + " " + std::to_string(position));
    return E_NOTIMPL;
  }

 private:
  ULONG references_ = 0;
  IID identifier_;
  std::shared_ptr<Scripted> scripted_;
};

/// Puts a new object, or nothing if the office gave nothing, where a caller wants it.
template <class Object, class Scripted, class Result>
void Give(const std::shared_ptr<Scripted>& scripted, Result** result) {
  *result = nullptr;
  if (scripted == nullptr) return;
  *result = new Object(scripted);
  (*result)->AddRef();
}

/// An object that has no interface but the general one.
class StandInForeignObject : public StandInObject<IDispatch, BridgeObject> {
 public:
  explicit StandInForeignObject(const std::shared_ptr<BridgeObject>& scripted)
      : StandInObject(IID_IDispatch, scripted) {}
};

}  // namespace qb
