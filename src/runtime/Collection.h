#pragma once

#include <tsl/robin_map.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/RuntimeError.h"
#include "runtime/SharedText.h"
#include "runtime/Text.h"

namespace qb {

/// A list with positions from 1 and an optional text key per element; keys are found regardless of case.
/// Elements keep their order. A position out of range raises 9, an unknown key 5, a key used twice 457.
template <class Element>
class Collection {
 public:
  /// Adds at the end; an empty key stands for none.
  void Add(Element element, std::string_view key = {}) {
    if (!key.empty()) {
      if (keys_ == nullptr) keys_ = std::make_unique<Keys>();
      if (!keys_->try_emplace(SharedText(UpperCase(key)), elements_.size()).second) {
        RaiseAbout(failure::kKeyAlreadyThere, key);
      }
    }
    elements_.push_back(std::move(element));
  }

  std::size_t Count() const { return elements_.size(); }
  bool Contains(std::string_view key) const {
    return keys_ != nullptr && !key.empty() && keys_->contains(UpperCase(key));
  }

  Element& Item(std::size_t position) { return elements_[Index(position)]; }
  const Element& Item(std::size_t position) const { return elements_[Index(position)]; }
  Element& Item(std::string_view key) { return elements_[Index(key)]; }
  const Element& Item(std::string_view key) const { return elements_[Index(key)]; }

  void Remove(std::size_t position) { Erase(Index(position)); }
  void Remove(std::string_view key) { Erase(Index(key)); }
  void Clear() {
    elements_.clear();
    keys_.reset();
  }

 private:
  using Keys = tsl::robin_map<SharedText, std::size_t, TextHash, std::equal_to<>,
                              std::allocator<std::pair<SharedText, std::size_t>>, true>;  // keeps the hashes

  std::size_t Index(std::size_t position) const {
    if (position < 1 || position > elements_.size()) throw RuntimeError(failure::kIndexOutOfRange);
    return position - 1;
  }

  std::size_t Index(std::string_view key) const {
    if (keys_ != nullptr) {
      const auto found = keys_->find(UpperCase(key));
      if (found != keys_->end()) return found->second;
    }
    RaiseAbout(failure::kInvalidArgument, key);
  }

  void Erase(std::size_t index) {
    elements_.erase(elements_.begin() + static_cast<std::ptrdiff_t>(index));
    if (keys_ == nullptr) return;
    for (auto key = keys_->begin(); key != keys_->end();) {
      if (key->second == index) {
        key = keys_->erase(key);
      } else {
        if (key->second > index) --key.value();
        ++key;
      }
    }
  }

  std::vector<Element> elements_;
  std::unique_ptr<Keys> keys_;  ///< made with the first key: most lists have none, and there are many lists
};

}  // namespace qb
