#include "editors/com/EventSink.h"

#include <exception>
#include <string_view>
#include <utility>

#include "editors/com/MemberCall.h"
#include "foundation/gRvdError.h"
#include "platform/win32/ComFailure.h"
#include "platform/win32/ComValues.h"
#include "platform/win32/SystemHeaders.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

/// Listeners with events that wait for the next turn.
std::vector<ComPtr<EventSink>> waitingSinks;

/// Hands a failure to the call that the event came in; reports it if there is none.
void PassOn(const std::exception_ptr& failure) {
  if (MemberCall* const call = MemberCall::Current()) {
    call->Hold(failure);
  } else if (!Attempt([&] { std::rethrow_exception(failure); })) {
    gRvdError("DocumentBridge", "Event");
  }
}

/// Tells the library what went wrong in its listener.
void Describe(const std::exception_ptr& failure, EXCEPINFO& description) {
  description = {};
  description.scode = E_FAIL;
  try {
    std::rethrow_exception(failure);
  } catch (const RuntimeError& error) {
    description.scode = ResultOf(error.Number());
    description.bstrSource = SysAllocString(L"QuillbankTranslator");
    description.bstrDescription = ComText(error.Description()).Detach();
  } catch (const std::exception& error) {
    description.bstrDescription = ComText(error.what()).Detach();
  }
}

}  // namespace

EventSink::EventSink(const EventNumbers& events, std::weak_ptr<IBridgeDocument> document)
    : events_(events), document_(std::move(document)) {
}

void EventSink::Begin() {
  begun_ = true;
  if (waiting_.empty()) return;
  waitingSinks.emplace_back(this);
  SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTurn);
}

void CALLBACK EventSink::OnTurn(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  for (const auto& sink : std::exchange(waitingSinks, {})) sink->RaiseWaiting();
}

void EventSink::RaiseWaiting() {
  for (const DISPID event : std::exchange(waiting_, {})) Tell(event, nullptr);
}

HRESULT EventSink::QueryInterface(REFIID identifier, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (identifier != IID_IUnknown && identifier != IID_IDispatch && identifier != events_.listener) {
    return E_NOINTERFACE;
  }
  AddRef();
  *object = static_cast<IDispatch*>(this);
  return S_OK;
}

ULONG EventSink::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT EventSink::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo**) {
  return E_NOTIMPL;
}

HRESULT EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
  return DISP_E_UNKNOWNNAME;  // events come by their numbers
}

HRESULT EventSink::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* failure,
                          UINT*) {
  const ComPtr<EventSink> alive = this;
  if (event != events_.postClose && event != events_.postLocalSave) return S_OK;
  if (!begun_) {
    waiting_.push_back(event);
    return S_OK;
  }
  return Tell(event, failure);
}

HRESULT EventSink::Tell(DISPID event, EXCEPINFO* failure) {
  try {
    Raise(event);
    return S_OK;
  } catch (...) {  // nothing may be thrown through the library
    const std::exception_ptr thrown = std::current_exception();
    if (failure != nullptr) Describe(thrown, *failure);
    PassOn(thrown);
    return DISP_E_EXCEPTION;
  }
}

void EventSink::Raise(DISPID event) {
  const auto document = document_.lock();
  if (document == nullptr) return;
  if (event == events_.postClose) {
    document->RaiseOnPostClose();
  } else {
    document->RaiseOnPostLocalSave();
  }
}

}  // namespace qb
