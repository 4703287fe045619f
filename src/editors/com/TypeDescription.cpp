#include "editors/com/TypeDescription.h"

#include <string>
#include <utility>

#include "platform/win32/ComFailure.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr const char* kSubject = "type library of the Document Bridge";

/// The description of one member, given back at its end.
class Member {
 public:
  Member(ITypeInfo& type, int index) : type_(type) {
    CheckCom(type.GetFuncDesc(static_cast<UINT>(index), &description_), kSubject);
  }
  Member(const Member&) = delete;
  Member& operator=(const Member&) = delete;
  ~Member() { type_.ReleaseFuncDesc(description_); }
  const FUNCDESC* operator->() const { return description_; }

 private:
  ITypeInfo& type_;
  FUNCDESC* description_ = nullptr;
};

ComPtr<ITypeInfo> Referred(ITypeInfo& type, HREFTYPE reference) {
  ComPtr<ITypeInfo> referred;
  CheckCom(type.GetRefTypeInfo(reference, referred.GetAddressOf()), kSubject);
  return referred;
}

/// How the class marks one of the types that it is made of.
int FlagsOf(ITypeInfo& theClass, UINT index) {
  int flags = 0;
  CheckCom(theClass.GetImplTypeFlags(index, &flags), kSubject);
  return flags;
}

ComPtr<ITypeInfo> ImplementedBy(ITypeInfo& theClass, UINT index) {
  HREFTYPE reference = 0;
  CheckCom(theClass.GetRefTypeOfImplType(index, &reference), kSubject);
  return Referred(theClass, reference);
}

ComPtr<ITypeInfo> DirectEntries(ComPtr<ITypeInfo> type) {
  TypeTraits traits = TraitsOf(*type.Get());
  if (traits.kind == TKIND_COCLASS) {
    type = TypeDescription::DefaultOf(*type.Get(), false);
    if (type == nullptr) RaiseUnusableLibrary("a class has no default interface");
    traits = TraitsOf(*type.Get());
  }
  if (traits.kind == TKIND_DISPATCH && (traits.flags & TYPEFLAG_FDUAL) != 0) {
    constexpr UINT kDirectEntries = static_cast<UINT>(-1);
    HREFTYPE reference = 0;
    CheckCom(type->GetRefTypeOfImplType(kDirectEntries, &reference), kSubject);
    type = Referred(*type.Get(), reference);
  }
  return type;
}

/// Whether a member belongs to the entries that every automation interface begins with.
bool IsInherited(const FUNCDESC& member) {
  constexpr DISPID kFirstOfUnknown = 0x60000000;
  constexpr DISPID kLastOfDispatch = 0x60010003;
  return member.memid >= kFirstOfUnknown && member.memid <= kLastOfDispatch;
}

}  // namespace

void RaiseUnusableLibrary(const char* why) {
  throw RuntimeError(failure::kInternalError, {}, std::string("The ") + kSubject + " cannot be used: " + why);
}

TypeTraits TraitsOf(ITypeInfo& type) {
  TYPEATTR* attributes = nullptr;
  CheckCom(type.GetTypeAttr(&attributes), kSubject);
  const TypeTraits traits{attributes->typekind, attributes->wTypeFlags, attributes->cImplTypes,
                          attributes->cFuncs, attributes->guid};
  type.ReleaseTypeAttr(attributes);
  return traits;
}

TypeDescription::TypeDescription(ComPtr<ITypeInfo> type) : type_(DirectEntries(std::move(type))) {
}

IID TypeDescription::Identifier() const {
  return TraitsOf(*type_.Get()).identifier;
}

void TypeDescription::MustHave(int position, int parameters) const {
  if (TraitsOf(*type_.Get()).members <= position) RaiseUnusableLibrary("an interface has too few members");
  const Member member(*type_.Get(), position);
  if (member->cParams != parameters) RaiseUnusableLibrary("a member has not the parameters expected");
}

TypeDescription TypeDescription::ResultOf(int position) const {
  const Member member(*type_.Get(), position);
  const TYPEDESC* result =
      member->cParams == 0 ? nullptr : &member->lprgelemdescParam[member->cParams - 1].tdesc;
  while (result != nullptr && result->vt == VT_PTR) result = result->lptdesc;
  if (result == nullptr || result->vt != VT_USERDEFINED) {
    RaiseUnusableLibrary("a member does not give the interface expected");
  }
  return TypeDescription(Referred(*type_.Get(), result->hreftype));
}

std::optional<DISPID> TypeDescription::FindEvent(int position) const {
  int own = 0;
  for (int index = 0; index < TraitsOf(*type_.Get()).members; ++index) {
    const Member member(*type_.Get(), index);
    if (!IsInherited(*member.operator->()) && own++ == position) return member->memid;
  }
  return std::nullopt;
}

bool TypeDescription::HasEvent(int position) const {
  return FindEvent(position).has_value();
}

DISPID TypeDescription::EventNumber(int position) const {
  const auto number = FindEvent(position);
  if (!number) RaiseUnusableLibrary("a document has too few events");
  return *number;
}

ComPtr<ITypeInfo> TypeDescription::DefaultOf(ITypeInfo& theClass, bool events) {
  for (UINT index = 0; index < TraitsOf(theClass).implemented; ++index) {
    const int flags = FlagsOf(theClass, index);
    const bool isSource = (flags & IMPLTYPEFLAG_FSOURCE) != 0;
    if ((flags & IMPLTYPEFLAG_FDEFAULT) != 0 && isSource == events) return ImplementedBy(theClass, index);
  }
  return nullptr;
}

bool TypeDescription::Implements(ITypeInfo& theClass, const IID& identifier) {
  for (UINT index = 0; index < TraitsOf(theClass).implemented; ++index) {
    if ((FlagsOf(theClass, index) & IMPLTYPEFLAG_FSOURCE) != 0) continue;
    if (TraitsOf(*ImplementedBy(theClass, index).Get()).identifier == identifier) return true;
  }
  return false;
}

}  // namespace qb
