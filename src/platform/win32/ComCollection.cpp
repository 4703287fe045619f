#include "platform/win32/ComCollection.h"

#include <utility>

#include "platform/win32/ComFailure.h"
#include "platform/win32/ComInvoke.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::int32_t kMostElements = 100'000;  // no list has so many, but for one without an end
constexpr WORD kRead = DISPATCH_PROPERTYGET | DISPATCH_METHOD;  // lists differ in what these members are

std::vector<ComValue> ByPosition(IDispatch& collection) {
  std::vector<ComValue> elements;
  const TaggedValue count =
      InvokeMember(collection, MemberNumber(collection, "Count"), kRead, "Count").Tagged();
  const auto* const last = std::get_if<std::int32_t>(&count);
  if (last == nullptr) throw RuntimeError(failure::kTypeMismatch);
  if (*last > kMostElements) RaiseAbout(failure::kOverflow, "collection");
  const DISPID item = MemberNumber(collection, "Item");
  for (std::int32_t position = 1; position <= *last; ++position) {
    elements.push_back(InvokeMember(collection, item, kRead, "Item", {TaggedValue(position)}));
  }
  return elements;
}

std::vector<ComValue> ByEnumerator(IUnknown& enumerator) {
  ComPtr<IEnumVARIANT> each;
  CheckCom(enumerator.QueryInterface(IID_IEnumVARIANT, &each), "collection");
  std::vector<ComValue> elements;
  for (;;) {
    ComValue element;
    ULONG fetched = 0;
    const HRESULT result = each->Next(1, element.Out(), &fetched);
    CheckCom(result, "collection");
    if (result != S_OK || fetched != 1) return elements;
    if (elements.size() == kMostElements) RaiseAbout(failure::kOverflow, "collection");
    elements.push_back(std::move(element));
  }
}

/// What gives the elements one after the other; nothing if the list has no such thing.
ComPtr<IUnknown> EnumeratorOf(IDispatch& collection) {
  try {
    const ComValue value = InvokeMember(collection, DISPID_NEWENUM, kRead, "_NewEnum");
    const VARTYPE type = value.Get().vt;
    return type == VT_UNKNOWN || type == VT_DISPATCH ? value.Get().punkVal : nullptr;
  } catch (const RuntimeError& error) {
    if (error.Number() != failure::kNoSuchMember) throw;
    return nullptr;
  }
}

}  // namespace

std::vector<ComValue> ElementsOf(IDispatch& collection) {
  const ComPtr<IUnknown> enumerator = EnumeratorOf(collection);
  return enumerator != nullptr ? ByEnumerator(*enumerator.Get()) : ByPosition(collection);
}

}  // namespace qb
