#pragma once

#include <tsl/robin_map.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/ProfileSection.h"
#include "platform/ProfileText.h"

namespace qb {

/// One change of a profile file. Without a value the key is removed, without a key the section.
struct ProfileChange {
  std::string_view section;
  std::optional<std::string_view> key;
  std::optional<std::string_view> value;
};

/// One profile file in memory, as bytes of its code page. Lines that are not changed keep every byte. The
/// first section of a name and the first key in it count; names match regardless of case; blanks around names
/// and values do not count. Views into the image hold until the next change.
class ProfileImage {
 public:
  /// Maps the bytes of a name to a form that is the same for all its spellings; asked only for names of the
  /// same length that are not ASCII.
  using NameFolding = std::function<std::string(std::string_view)>;

  ProfileImage() = default;
  /// Raises 7 (out of memory) from 2 GiB on.
  explicit ProfileImage(std::string bytes);

  /// Until this is called, only the ASCII letters match regardless of case.
  void SetFolding(NameFolding folding);

  /// Whether the file says of itself, by the mark in front, that its texts are UTF-8.
  bool IsMarkedAsUtf8() const { return markLength_ > 0; }
  /// Whether it says that it is UTF-16, of which nothing is read here.
  bool IsMarkedAsUtf16() const;

  /// The value without blanks around it and without its pair of quotes; nothing if section or key is missing
  /// or the line has no `=`.
  std::optional<std::string_view> Value(std::string_view section, std::string_view key) const;

  /// The names of all sections in file order.
  std::vector<std::string_view> SectionNames() const;

  /// Why a change cannot be stored so that it can be read back; empty if it can.
  static std::string_view Objection(const ProfileChange& change);

  /// Whether `Apply` would change a byte.
  bool WouldChange(const ProfileChange& change) const;

  /// Makes a change without an objection; false if it changes no byte.
  bool Apply(const ProfileChange& change);

  /// The file's content as it stands now, in pieces that follow one another. They hold until the next change.
  Pieces Content() const;
  std::size_t ByteLength() const { return length_; }

 private:
  using Line = ProfileText::Line;
  static constexpr std::uint32_t kNone = ProfileSection::kNone;

  void Parse();
  void IndexSections();
  bool SameName(std::string_view left, std::string_view right) const;
  std::uint32_t FindSection(std::string_view name) const;
  /// Also gives what stands behind the sign in the key's line, if `text` is given.
  std::uint32_t FindKey(const ProfileSection& section, std::string_view key,
                        std::optional<std::string_view>* text = nullptr) const;
  bool Holds(const Line& line, std::string_view value) const;

  void Set(std::string_view section, std::string_view key, std::string_view value);
  ProfileSection& AddSection(std::string_view name);
  void RemoveKey(std::uint32_t section, std::string_view key);
  void RemoveSection(std::uint32_t section);
  Line NewLine(std::string_view bytes, std::uint32_t nameHash);
  void Rewrite(Line& line, std::string_view bytes);
  void CloseLine(Line& line);

  ProfileText text_;
  std::size_t markLength_ = 0;           // bytes of a byte order mark in front
  std::string_view lineEnd_ = "\r\n";    // for new lines
  std::deque<ProfileSection> sections_;  // the first one stands for what precedes the first header
  tsl::robin_map<std::uint32_t, std::uint32_t> firstSection_;  // by the hash of the name
  NameFolding folding_;
  std::size_t length_ = 0;
  mutable std::string lastName_;  // the section found last, since reads come in runs
  mutable std::uint32_t lastSection_ = kNone;
};

}  // namespace qb
