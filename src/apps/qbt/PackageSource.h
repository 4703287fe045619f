#pragma once

#include <tsl/robin_map.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ProfileLine.h"
#include "platform/TextCodec.h"

namespace qb {

/// A line `NAME=VALUE`. The texts are bytes of the file's code page; blanks around them and one pair of
/// quotes around the value are off.
struct PackageEntry {
  std::string_view name;
  std::string_view value;
  std::uint32_t line = 0;  ///< from 1
  bool hasSign = true;     ///< the line has a `=`
};

/// Compares names regardless of the case of ASCII letters.
bool SameName(std::string_view left, std::string_view right);

struct NameHash {
  std::size_t operator()(std::string_view name) const { return ProfileNameHash(name); }
};
struct NameEqual {
  bool operator()(std::string_view left, std::string_view right) const { return SameName(left, right); }
};

/// One package file as it lies on the disk, with the number of each line. It is read once and never written.
class PackageSource {
 public:
  struct Section {
    std::string_view name;   ///< empty for what stands in front of the first header
    std::uint32_t line = 0;  ///< of the header; 0 without one
    std::uint32_t first = 0;
    std::uint32_t end = 0;
    bool shadowed = false;  ///< a section of this name stands before it, so this one is never read
  };

  /// `path` is where the bytes come from, as a Windows path.
  PackageSource(std::string path, std::string bytes);
  PackageSource(const PackageSource&) = delete;
  PackageSource& operator=(const PackageSource&) = delete;

  const std::string& Path() const { return path_; }
  const std::string& Bytes() const { return bytes_; }
  CodePage TextCodePage() const { return codePage_; }
  std::uint32_t LineCount() const { return lines_; }

  const std::vector<Section>& Sections() const { return sections_; }
  /// The first section of this name, regardless of case; null if there is none.
  const Section* Find(std::string_view name) const;
  std::span<const PackageEntry> Entries(const Section& section) const {
    return std::span(entries_).subspan(section.first, section.end - section.first);
  }
  /// The first key of this name in the section; null if section or key is missing.
  const PackageEntry* Find(const Section* section, std::string_view key) const;
  /// Its value as text; empty if section or key is missing.
  std::string Value(std::string_view section, std::string_view key) const;

  /// Bytes of the file as text.
  std::string Text(std::string_view bytes) const;

 private:
  void Parse();
  /// Adds a line whose name and value need no trimming, as most do. False if it is none, and must be parsed.
  bool AddPlainEntry(std::string_view line);
  void AddSection(std::string_view name, std::uint32_t line);

  std::string path_;
  std::string bytes_;
  CodePage codePage_ = kUtf8;
  std::uint32_t lines_ = 0;
  std::vector<PackageEntry> entries_;
  std::vector<Section> sections_;
  tsl::robin_map<std::string_view, std::uint32_t, NameHash, NameEqual> byName_;
};

/// Reads a package file. Raises CommandFailure, naming the file, if it cannot be read.
PackageSource ReadPackage(const std::string& path);

}  // namespace qb
