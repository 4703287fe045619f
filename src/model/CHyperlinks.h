#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/Collection.h"

namespace qb {

class CHyperlink {
 public:
  void Init(std::string_view url, std::string_view placeholder, std::string_view info);
  const std::string& URL() const { return url_; }
  const std::string& Placeholder() const { return placeholder_; }
  const std::string& Info() const { return info_; }

 private:
  std::string placeholder_;
  std::string url_;
  std::string info_;
};

/// The hyperlinks of a language version. Positions from 1; range errors raise 9, unknown keys 5, doubled ones
/// 457.
class CHyperlinks {
 public:
  /// `LinkText` is not used.
  std::shared_ptr<CHyperlink> Add(std::string_view Placeholder, std::string_view LinkText,
                                  std::string_view url, std::string_view info, std::string_view key);
  std::shared_ptr<CHyperlink> Item(std::size_t vntIndexKey) const { return hyperlinks_.Item(vntIndexKey); }
  std::shared_ptr<CHyperlink> Item(std::string_view vntIndexKey) const {
    return hyperlinks_.Item(vntIndexKey);
  }
  std::size_t Count() const { return hyperlinks_.Count(); }
  void Remove(std::size_t vntIndexKey) { hyperlinks_.Remove(vntIndexKey); }
  void Remove(std::string_view vntIndexKey) { hyperlinks_.Remove(vntIndexKey); }
  /// The elements in order.
  std::vector<std::shared_ptr<CHyperlink>> NewEnum() const;

 private:
  Collection<std::shared_ptr<CHyperlink>> hyperlinks_;
};

}  // namespace qb
