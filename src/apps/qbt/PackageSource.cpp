#include "apps/qbt/PackageSource.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "apps/qbt/ExitCode.h"
#include "apps/qbt/PackageArgument.h"
#include "platform/PackageCodePage.h"
#include "platform/Platform.h"
#include "platform/ProfileLine.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::size_t kTypicalLine = 14;      // bytes
constexpr std::size_t kTypicalSection = 256;  // bytes
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

char Capital(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

/// Nothing that is trimmed or means something at the ends of a name or a value.
bool IsWordCharacter(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
         byte == '_';
}

}  // namespace

bool SameName(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return false;
  return left == right || std::equal(left.begin(), left.end(), right.begin(), [](char one, char other) {
           return one == other || Capital(one) == Capital(other);
         });
}

PackageSource::PackageSource(std::string path, std::string bytes)
    : path_(std::move(path)), bytes_(std::move(bytes)) {
  Parse();
  const PackageEntry* language = Find(Find("GLOBAL"), "DSTLANGUAGE");
  // The rule asks a profile for the language; one with nothing else in it is quickly made.
  const ProfileImage image("[GLOBAL]\nDSTLANGUAGE=" +
                           std::string(language == nullptr ? "" : language->value));
  codePage_ = PackageCodePageChooser(*ThePlatform().registry, *ThePlatform().codec)(image);
}

void PackageSource::AddSection(std::string_view name, std::uint32_t line) {
  const auto position = static_cast<std::uint32_t>(entries_.size());
  if (!sections_.empty()) sections_.back().end = position;
  sections_.push_back({name, line, position, position, false});
  if (line == 0) return;
  const bool isNew = byName_.emplace(name, sections_.size() - 1).second;
  sections_.back().shadowed = !isNew;
}

bool PackageSource::AddPlainEntry(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos || sign == 0) return false;
  const std::string_view name = line.substr(0, sign);
  const std::string_view value = line.substr(sign + 1);
  if (!IsWordCharacter(name.front()) || !IsWordCharacter(name.back())) return false;
  if (!value.empty() && !(IsWordCharacter(value.front()) && IsWordCharacter(value.back()))) return false;
  entries_.push_back({name, value, lines_, true});
  return true;
}

void PackageSource::Parse() {
  std::string_view rest = bytes_;
  const bool hasNul = rest.find('\0') != std::string_view::npos;
  if (rest.starts_with(kByteOrderMark)) rest.remove_prefix(kByteOrderMark.size());
  entries_.reserve(bytes_.size() / kTypicalLine);
  byName_.reserve(bytes_.size() / kTypicalSection);
  AddSection({}, 0);
  while (!rest.empty()) {
    const auto* const found = static_cast<const char*>(std::memchr(rest.data(), '\n', rest.size()));
    const std::size_t length =
        found == nullptr ? rest.size() : static_cast<std::size_t>(found - rest.data()) + 1;
    const std::string_view bytes = rest.substr(0, length);
    rest.remove_prefix(length);
    ++lines_;
    if (!hasNul && AddPlainEntry(bytes)) continue;
    const ProfileLine line = ParseProfileLine(bytes);
    if (line.kind == ProfileLine::Kind::kSection) {
      AddSection(line.name, lines_);
    } else if (line.kind == ProfileLine::Kind::kKey) {
      const std::string_view value = line.text ? Unquoted(StoredValue(*line.text)) : std::string_view();
      entries_.push_back({line.name, value, lines_, line.text.has_value()});
    }
  }
  sections_.back().end = static_cast<std::uint32_t>(entries_.size());
}

const PackageSource::Section* PackageSource::Find(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : &sections_[found->second];
}

const PackageEntry* PackageSource::Find(const Section* section, std::string_view key) const {
  if (section == nullptr) return nullptr;
  for (const PackageEntry& entry : Entries(*section)) {
    // As in the program, a line without `=` hides the keys of its name that follow, and has no value.
    if (SameName(entry.name, key)) return entry.hasSign ? &entry : nullptr;
  }
  return nullptr;
}

std::string PackageSource::Value(std::string_view section, std::string_view key) const {
  const PackageEntry* entry = Find(Find(section), key);
  return entry == nullptr ? std::string() : Text(entry->value);
}

std::string PackageSource::Text(std::string_view bytes) const {
  return IsAscii(bytes) ? std::string(bytes) : ThePlatform().codec->Decode(bytes, codePage_);
}

PackageSource ReadPackage(const std::string& path) {
  std::string bytes;
  if (!Attempt([&] { bytes = ThePlatform().files->Read(path); })) {
    const std::string reason(StandardDescription(Err.Number));
    Err.Clear();
    throw CommandFailure(exitcode::kUnreadable, ShownPath(path) + " cannot be read: " +
                                                    (reason.empty() ? "unknown failure" : reason));
  }
  return {path, std::move(bytes)};
}

}  // namespace qb
