#pragma once

#include <cstddef>
#include <string_view>

#include "runtime/Collection.h"
#include "runtime/SharedText.h"

namespace qb {

struct CProperty {
  SharedText Name;
  SharedText Value;
  SharedText Info;
};

/// The properties of a language version. Positions from 1; range errors raise 9, unknown keys 5, doubled ones
/// 457.
class CProperties {
 public:
  /// The result and those of `Item` stand until the next `Add` or `Remove`.
  CProperty& Add(std::string_view name, std::string_view value, std::string_view info, std::string_view key);
  CProperty& Item(std::size_t vntIndexKey) { return properties_.Item(vntIndexKey); }
  CProperty& Item(std::string_view vntIndexKey) { return properties_.Item(vntIndexKey); }
  std::size_t Count() const { return properties_.Count(); }
  void Remove(std::size_t vntIndexKey) { properties_.Remove(vntIndexKey); }
  void Remove(std::string_view vntIndexKey) { properties_.Remove(vntIndexKey); }

 private:
  Collection<CProperty> properties_;
};

}  // namespace qb
