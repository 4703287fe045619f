#include "platform/ProfileSection.h"

#include <utility>

namespace qb {

std::uint32_t ProfileSection::FirstWith(std::uint32_t nameHash) const {
  if (!index_) BuildIndex();
  const auto found = index_->first.find(nameHash);
  return found == index_->first.end() ? kNone : found->second;
}

void ProfileSection::BuildIndex() const {
  auto index = std::make_unique<Index>();
  index->first.reserve(lines_.size());
  index->following.resize(lines_.size(), kNone);
  for (auto position = static_cast<std::uint32_t>(lines_.size()); position-- > 0;) {
    if (lines_[position].nameHash == 0) continue;
    const auto [entry, isNew] = index->first.try_emplace(lines_[position].nameHash, position);
    if (!isNew) index->following[position] = std::exchange(entry->second, position);
  }
  index_ = std::move(index);
}

void ProfileSection::Add(const Line& key) {
  touched_ = true;
  // Grows by an eighth, not to the double: there are as many sections as documents, and most gain one key.
  if (lines_.size() == lines_.capacity()) lines_.reserve(lines_.size() + lines_.size() / 8 + 4);
  const auto place = static_cast<std::ptrdiff_t>(filled_);
  lines_.insert(lines_.begin() + place, key);
  if (index_) {
    index_->following.insert(index_->following.begin() + place, kNone);
    const auto [entry, isNew] = index_->first.try_emplace(key.nameHash, filled_);
    if (!isNew) {
      std::uint32_t last = entry->second;
      while (index_->following[last] != kNone) last = index_->following[last];
      index_->following[last] = filled_;
    }
  }
  ++filled_;
}

void ProfileSection::Forget(std::uint32_t position) {
  if (!index_) return;
  const auto entry = index_->first.find(lines_[position].nameHash);
  const std::uint32_t next = index_->following[position];
  if (entry->second != position) {
    std::uint32_t before = entry->second;
    while (index_->following[before] != position) before = index_->following[before];
    index_->following[before] = next;
  } else if (next != kNone) {
    entry->second = next;
  } else {
    index_->first.erase(entry);
  }
}

void ProfileSection::DropLast() {
  lines_.pop_back();
  if (index_) index_->following.pop_back();
}

void ProfileSection::Clear() {
  touched_ = true;
  header.length = 0;
  lines_ = {};
  filled_ = 0;
  index_.reset();
}

}  // namespace qb
