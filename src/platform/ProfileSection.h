#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/ProfileText.h"

namespace qb {

/// The lines of one section of a profile file, and how its keys are found. Small sections are searched line
/// by line, large ones through an index that the first search builds.
class ProfileSection {
 public:
  using Line = ProfileText::Line;
  static constexpr std::uint32_t kNone = 0xFFFFFFFFU;

  /// `filled` is the number of lines up to the last that is not blank.
  ProfileSection(Line header, const std::vector<Line>& lines, std::uint32_t filled)
      : header(header), lines_(lines), filled_(filled) {}

  const std::vector<Line>& Lines() const { return lines_; }
  Line& At(std::uint32_t position) {
    touched_ = true;
    return lines_[position];
  }

  /// Header and lines as one, as long as they stand behind one another as they were made.
  std::optional<Line> Whole() const {
    if (touched_) return std::nullopt;
    const Line& first = header.length == 0 && !lines_.empty() ? lines_.front() : header;
    const Line& last = lines_.empty() ? header : lines_.back();
    return Line{first.place, last.place + last.length - first.place, 0};
  }

  /// The position of the first key with this hash that `matches(line)`, or kNone.
  template <class Matches>
  std::uint32_t Find(std::uint32_t nameHash, Matches matches) const {
    if (lines_.size() <= kSearchedLines) {
      for (std::uint32_t i = 0; i < lines_.size(); ++i) {
        if (lines_[i].nameHash == nameHash && matches(lines_[i])) return i;
      }
      return kNone;
    }
    std::uint32_t position = FirstWith(nameHash);
    while (position != kNone && !matches(lines_[position])) position = index_->following[position];
    return position;
  }

  /// The line behind which a new key goes.
  Line& LastFilled() { return filled_ == 0 ? TouchedHeader() : At(filled_ - 1); }
  /// The last line of the section in the file.
  Line& Last() {
    return lines_.empty() ? TouchedHeader() : At(static_cast<std::uint32_t>(lines_.size() - 1));
  }

  /// Puts a key, whose hash is not 0, behind the last line that is not blank.
  void Add(const Line& key);
  /// Takes the key at `position` out of the file. `isBlank(line)` tells blank lines.
  template <class IsBlank>
  void Remove(std::uint32_t position, IsBlank isBlank) {
    touched_ = true;
    Forget(position);
    lines_[position].length = 0;
    lines_[position].nameHash = 0;
    while (filled_ > 0 && (lines_[filled_ - 1].length == 0 || isBlank(lines_[filled_ - 1]))) --filled_;
    while (!lines_.empty() && lines_.back().length == 0) DropLast();
  }
  /// Takes all lines and the header out of the file.
  void Clear();

  Line header;                        ///< without bytes in front of the first section and once removed
  std::uint32_t nextSection = kNone;  ///< the next section whose name has the same hash

 private:
  static constexpr std::size_t kSearchedLines = 64;

  struct Index {
    std::unordered_map<std::uint32_t, std::uint32_t> first;  ///< by hash: position of the first such line
    std::vector<std::uint32_t> following;                    ///< by position: the next line of the same hash
  };

  Line& TouchedHeader() {
    touched_ = true;
    return header;
  }
  std::uint32_t FirstWith(std::uint32_t nameHash) const;
  void BuildIndex() const;
  void Forget(std::uint32_t position);
  void DropLast();

  std::vector<Line> lines_;
  std::uint32_t filled_;
  bool touched_ = false;
  mutable std::unique_ptr<Index> index_;
};

}  // namespace qb
