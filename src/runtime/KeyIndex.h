#pragma once

#include <tsl/robin_set.h>

#include <cstddef>
#include <memory>
#include <string_view>

#include "runtime/SharedText.h"

namespace qb {

/// Hashes and compares things by their key, for sets of pointers to them that are searched by key.
template <class Thing>
struct KeyHash {
  using is_transparent = void;
  std::size_t operator()(const Thing* thing) const noexcept { return TextHash()(thing->Key()); }
  std::size_t operator()(std::string_view key) const noexcept { return TextHash()(key); }
};

template <class Thing>
struct KeyEqual {
  using is_transparent = void;
  bool operator()(const Thing* left, const Thing* right) const { return left->Key() == right->Key(); }
  bool operator()(std::string_view left, const Thing* right) const { return right->Key() == left; }
  bool operator()(const Thing* left, std::string_view right) const { return left->Key() == right; }
};

/// Pointers to things by their key. Each stands beside its hash in one row of memory, so that a search among
/// many thousands looks at one place instead of following a chain.
template <class Thing>
using KeyIndex = tsl::robin_set<Thing*, KeyHash<Thing>, KeyEqual<Thing>, std::allocator<Thing*>, true>;

}  // namespace qb
