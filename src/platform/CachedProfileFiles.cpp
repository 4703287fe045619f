#include "platform/CachedProfileFiles.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "platform/ProfileLine.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::size_t kHeldFiles = 2;
constexpr std::size_t kLongestCharacter = 4;  // bytes, in any code page

/// A text in the bytes of a code page; one that is ASCII already is not copied.
class EncodedText {
 public:
  EncodedText(TextCodec& codec, std::string_view text, CodePage codePage) : bytes_(text) {
    if (IsAscii(text)) return;
    own_ = codec.Encode(text, codePage);
    bytes_ = own_;
  }
  EncodedText(const EncodedText&) = delete;
  EncodedText& operator=(const EncodedText&) = delete;

  std::string_view Bytes() const { return bytes_; }

 private:
  std::string own_;
  std::string_view bytes_;
};

/// A default comes back without the blanks at its end and, as a value does, without its pair of quotes.
std::string_view DefaultAnswer(std::string_view defaultValue) {
  return Unquoted(TrimRight(defaultValue));
}

}  // namespace

CachedProfileFiles::CachedProfileFiles(FileSystem& files, TextCodec& codec, CodePageChooser chooser)
    : files_(files), codec_(codec), chooser_(std::move(chooser)) {
}

HeldProfile& CachedProfileFiles::Held(std::string_view path) {
  const auto found = std::find_if(held_.begin(), held_.end(),
                                  [path](const auto& profile) { return profile->Path() == path; });
  if (found != held_.end()) {
    std::rotate(held_.begin(), found, found + 1);
    return *held_.front();
  }
  if (held_.size() >= kHeldFiles) {
    const auto last =
        std::find_if(held_.rbegin(), held_.rend(), [](const auto& profile) { return !profile->MustStay(); });
    if (last != held_.rend()) held_.erase(std::next(last).base());
  }
  held_.insert(held_.begin(), std::make_unique<HeldProfile>(files_, codec_, chooser_, std::string(path)));
  return *held_.front();
}

HeldProfile& CachedProfileFiles::Fresh(std::string_view path) {
  HeldProfile& profile = Held(path);
  profile.Refresh();
  return profile;
}

std::optional<std::string_view> CachedProfileFiles::Value(const HeldProfile& profile,
                                                          std::string_view section, std::string_view key) {
  return profile.Image().Value(EncodedText(codec_, section, profile.TextCodePage()).Bytes(),
                               EncodedText(codec_, key, profile.TextCodePage()).Bytes());
}

std::string CachedProfileFiles::GetPrivateProfileString(std::string_view section, std::string_view key,
                                                        std::string_view defaultValue, std::size_t size,
                                                        std::string_view path) {
  if (size == 0) return {};
  const std::size_t room = size - 1;
  const HeldProfile& profile = Fresh(path);
  const std::optional<std::string_view> value = Value(profile, section, key);
  if (!value) return std::string(FirstCharacters(DefaultAnswer(defaultValue), room));
  if (IsAscii(*value)) return std::string(value->substr(0, room));
  const bool fits = value->size() / kLongestCharacter <= room;
  const std::string_view bytes = fits ? *value : value->substr(0, room * kLongestCharacter);
  const std::string text = codec_.Decode(bytes, profile.TextCodePage());
  return std::string(FirstCharacters(text, room));
}

std::size_t CachedProfileFiles::ValueLength(std::string_view section, std::string_view key,
                                            std::string_view defaultValue, std::string_view path) {
  const HeldProfile& profile = Fresh(path);
  const std::optional<std::string_view> value = Value(profile, section, key);
  if (!value) return CharacterCount(DefaultAnswer(defaultValue));
  return IsAscii(*value) ? value->size() : CharacterCount(codec_.Decode(*value, profile.TextCodePage()));
}

bool CachedProfileFiles::WritePrivateProfileString(std::string_view section,
                                                   std::optional<std::string_view> key,
                                                   std::optional<std::string_view> value,
                                                   std::string_view path) {
  HeldProfile& profile = Fresh(path);
  const EncodedText sectionBytes(codec_, section, profile.TextCodePage());
  const EncodedText keyBytes(codec_, key.value_or(""), profile.TextCodePage());
  const EncodedText valueBytes(codec_, value.value_or(""), profile.TextCodePage());
  ProfileChange change{sectionBytes.Bytes(), {}, {}};
  if (key) change.key = keyBytes.Bytes();
  if (value) change.value = valueBytes.Bytes();
  const std::string_view objection =
      profile.Image().IsMarkedAsUtf16() ? "the file is in UTF-16" : ProfileImage::Objection(change);
  if (!objection.empty()) {
    Refuse(path, objection);
    return false;
  }
  try {
    profile.Change(change);
    return true;
  } catch (const RuntimeError& error) {
    Refuse(path, error.Description());
    return false;
  }
}

std::string CachedProfileFiles::GetPrivateProfileSectionNames(std::size_t size, std::string_view path) {
  const HeldProfile& profile = Fresh(path);
  std::string names;
  for (const std::string_view name : profile.Image().SectionNames()) {
    if (!name.empty()) names.append(name).push_back('\0');  // an empty one would end the list
  }
  if (!IsAscii(names)) names = codec_.Decode(names, profile.TextCodePage());
  names.resize(FirstCharacters(names, size < 2 ? 0 : size - 2).size());
  names.push_back('\0');
  return names;
}

std::uint64_t CachedProfileFiles::Length(std::string_view path) {
  const HeldProfile& profile = Held(path);
  if (profile.InBatch() && (profile.Exists() || profile.Image().ByteLength() > 0)) {
    return profile.Image().ByteLength();
  }
  const std::optional<FileStamp> stamp = files_.Stamp(path);
  if (!stamp) RaiseAbout(failure::kFileNotFound, path);
  return stamp->size;
}

CodePage CachedProfileFiles::CodePageOf(std::string_view path) {
  return Fresh(path).TextCodePage();
}

void CachedProfileFiles::BeginBatch(std::string_view path) {
  HeldProfile& profile = Held(path);
  profile.BeginBatch();
  batches_.push_back(&profile);
}

bool CachedProfileFiles::EndBatch() {
  if (batches_.empty()) return true;
  HeldProfile& profile = *batches_.back();
  batches_.pop_back();
  try {
    profile.EndBatch();
    return true;
  } catch (const RuntimeError& error) {
    Refuse(profile.Path(), error.Description());
    return false;
  }
}

void CachedProfileFiles::Refuse(std::string_view path, std::string_view reason) {
  // A failure of the file system names its file behind the reason.
  const std::string named = fmt::format(" ('{}')", path);
  if (reason.ends_with(named)) reason.remove_suffix(named.size());
  lastRefusal_ = fmt::format("{}: {}", path, reason);
}

}  // namespace qb
