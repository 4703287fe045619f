#include "windows/bridge/StandInHost.h"

#include <algorithm>
#include <limits>

#include "platform/win32/Win32Text.h"

namespace qb {
namespace {

using Values = std::vector<ComValue>;

/// Gives the elements of a list one after the other.
class StandInEnumerator : public IEnumVARIANT {
 public:
  explicit StandInEnumerator(Values values) : values_(std::move(values)) { ++theStandIn.objects; }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override {
    *object = nullptr;
    if (identifier != IID_IUnknown && identifier != IID_IEnumVARIANT) return E_NOINTERFACE;
    AddRef();
    *object = static_cast<IEnumVARIANT*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override {
    ULONG given = 0;
    if (theStandIn.listsWithoutEnd && next_ == values_.size()) next_ = 0;
    for (; given < count && next_ < values_.size(); ++given)
      VariantCopy(values + given, values_[next_++].Out());
    if (fetched != nullptr) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

 private:
  virtual ~StandInEnumerator() { --theStandIn.objects; }

  ULONG references_ = 0;
  std::size_t next_ = 0;
  Values values_;
};

void GiveObject(const std::shared_ptr<AutomationObject>& object, VARIANT& result) {
  if (object == nullptr) return;
  Give<StandInHost>(object, &result.pdispVal);
  result.vt = VT_DISPATCH;
}

void GiveEnumerator(Values values, VARIANT& result) {
  if (theStandIn.listsByPosition) throw RuntimeError(failure::kNoSuchMember);
  result.punkVal = new StandInEnumerator(std::move(values));
  result.punkVal->AddRef();
  result.vt = VT_UNKNOWN;
}

}  // namespace

template <class Scripted>
HRESULT StandInNamed<Scripted>::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* members) {
  if (theStandIn.busyFor-- > 0) return RPC_E_CALL_REJECTED;
  known_.push_back(Utf8(names[0]));
  members[0] = static_cast<DISPID>(known_.size());
  return S_OK;
}

template <class Scripted>
HRESULT StandInNamed<Scripted>::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments,
                                       VARIANT* result, EXCEPINFO* failure, UINT*) {
  if (theStandIn.busyFor-- > 0) return RPC_E_SERVERCALL_RETRYLATER;
  const std::string name =
      member == DISPID_NEWENUM ? "_NewEnum" : known_.at(static_cast<std::size_t>(member) - 1);
  try {
    VariantInit(result);
    Read(name, *arguments, *result);
    return S_OK;
  } catch (const RuntimeError& error) {
    if (error.Number() == failure::kNoSuchMember || failure == nullptr) return DISP_E_MEMBERNOTFOUND;
    *failure = {};
    failure->scode = ResultOf(error.Number());
    failure->bstrDescription = ComText(error.Description()).Detach();
    return DISP_E_EXCEPTION;
  }
}

void StandInHost::Read(const std::string& name, const DISPPARAMS&, VARIANT& result) {
  if (name == "_NewEnum") {
    Values values;
    for (const auto& element : Script().Elements()) GiveObject(element, *values.emplace_back().Out());
    GiveEnumerator(std::move(values), result);
  } else if (name == "Name" || name == "Address") {
    VariantCopy(&result, ComValue(TaggedValue(Script().TextProperty(name))).Out());
  } else {
    GiveObject(Script().ObjectProperty(name), result);
  }
}

void StandInTexts::Read(const std::string& name, const DISPPARAMS& arguments, VARIANT& result) {
  const auto count = static_cast<std::int32_t>(Script().Count());
  if (name == "_NewEnum") {
    Values values;
    for (std::int32_t i = 1; i <= count; ++i) values.emplace_back(TaggedValue(Script().Item(std::size_t(i))));
    GiveEnumerator(std::move(values), result);
  } else if (name == "Count") {
    const std::int32_t told = theStandIn.listsWithoutEnd ? std::numeric_limits<std::int32_t>::max() : count;
    VariantCopy(&result, ComValue(TaggedValue(told)).Out());
  } else {
    const auto position = std::get<std::int32_t>(ComValue::TaggedOf(arguments.rgvarg[0]));
    VariantCopy(&result, ComValue(TaggedValue(Script().Item(std::size_t(position)))).Out());
  }
}

}  // namespace qb
