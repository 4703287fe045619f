#pragma once

#include <optional>

#include "platform/win32/ComHeaders.h"

namespace qb {

/// One type of a type library. Members are reached by their position; a type that does not have what it is
/// asked for raises 51.
class TypeDescription {
 public:
  /// Of a class, its default interface is meant; of an automation interface, its direct entries.
  explicit TypeDescription(ComPtr<ITypeInfo> type);

  IID Identifier() const;
  /// Raises unless the member at `position` takes this many parameters, its result among them.
  void MustHave(int position, int parameters) const;
  /// The interface that the member at `position` gives.
  TypeDescription ResultOf(int position) const;
  bool HasEvent(int position) const;
  /// The number by which the event at `position` is told to a listener.
  DISPID EventNumber(int position) const;

  /// The type of a class that is marked so: its default interface, or the one by which it raises events.
  /// Nothing if it has none.
  static ComPtr<ITypeInfo> DefaultOf(ITypeInfo& theClass, bool events);
  /// Whether objects of the class have the interface.
  static bool Implements(ITypeInfo& theClass, const IID& identifier);

 private:
  std::optional<DISPID> FindEvent(int position) const;

  ComPtr<ITypeInfo> type_;
};

/// Kind and flags of a type.
struct TypeTraits {
  TYPEKIND kind;
  WORD flags;
  WORD implemented;  ///< how many interfaces it is made of
  WORD members;
  GUID identifier;
};
TypeTraits TraitsOf(ITypeInfo& type);

/// Raises that the type library is not of use, and why.
[[noreturn]] void RaiseUnusableLibrary(const char* why);

}  // namespace qb
