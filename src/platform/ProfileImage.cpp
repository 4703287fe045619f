#include "platform/ProfileImage.h"

#include <algorithm>
#include <utility>

#include "platform/ProfileLine.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineBreakers("\r\n\0", 3);

char AsciiUpper(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte;
}

std::string_view LineEndOf(std::string_view line) {
  if (line.ends_with("\r\n")) return "\r\n";
  if (line.ends_with('\n')) return "\n";
  return line.ends_with('\r') ? "\r" : "";
}

/// Cuts a file into lines. CR LF, LF and a CR alone end one.
class LineReader {
 public:
  LineReader(std::string_view all, std::size_t start) : all_(all), next_(start) {}

  bool AtEnd() const { return next_ >= all_.size(); }
  /// The next line with its end.
  std::string_view Take() {
    const std::size_t start = next_;
    // Looked for only when it is passed, so that a file of CR alone is not searched for each line.
    if (!feedKnown_ || feed_ < start) {
      feed_ = std::min(all_.find('\n', start), all_.size());
      feedKnown_ = true;
    }
    const std::size_t carriage = all_.substr(start, feed_ - start).find('\r');
    const bool endsAlone = carriage != std::string_view::npos && start + carriage + 1 != feed_;
    const bool endsFile = carriage != std::string_view::npos && feed_ == all_.size();
    next_ = endsAlone || endsFile ? start + carriage + 1 : std::min(feed_ + 1, all_.size());
    return all_.substr(start, next_ - start);
  }

 private:
  std::string_view all_;
  std::size_t next_;
  std::size_t feed_ = 0;
  bool feedKnown_ = false;
};

/// Whether the line is spelled just `key=`. That is the usual case, and needs no parsing.
bool IsSpelled(std::string_view line, std::string_view key) {
  return line.size() > key.size() && line[key.size()] == '=' && line.starts_with(key);
}

}  // namespace

ProfileImage::ProfileImage(std::string bytes) : text_(std::move(bytes)), length_(text_.Original().size()) {
  Parse();
  IndexSections();
}

void ProfileImage::SetFolding(NameFolding folding) {
  folding_ = std::move(folding);
  lastSection_ = kNone;
}

bool ProfileImage::IsMarkedAsUtf16() const {
  return text_.Original().starts_with("\xFF\xFE") || text_.Original().starts_with("\xFE\xFF");
}

void ProfileImage::Parse() {
  const std::string_view all = text_.Original();
  if (all.starts_with(kByteOrderMark)) markLength_ = kByteOrderMark.size();
  std::vector<Line> lines;
  std::uint32_t filled = 0;
  Line header;
  bool lineEndKnown = false;
  for (LineReader reader(all, markLength_); !reader.AtEnd();) {
    const std::string_view bytes = reader.Take();
    if (bytes.back() == '\n' && !std::exchange(lineEndKnown, true)) lineEnd_ = LineEndOf(bytes);
    Line line{static_cast<std::uint32_t>(bytes.data() - all.data()), static_cast<std::uint32_t>(bytes.size()),
              0};
    const ProfileLine parsed = ParseProfileLine(bytes);
    if (parsed.kind == ProfileLine::Kind::kSection) {
      sections_.emplace_back(header, lines, filled);
      lines.clear();
      filled = 0;
      header = line;
    } else {
      if (parsed.kind == ProfileLine::Kind::kKey) line.nameHash = ProfileNameHash(parsed.name);
      lines.push_back(line);
      if (parsed.kind != ProfileLine::Kind::kBlank) filled = static_cast<std::uint32_t>(lines.size());
    }
  }
  sections_.emplace_back(header, lines, filled);
}

void ProfileImage::IndexSections() {
  firstSection_.reserve(sections_.size());
  for (auto i = static_cast<std::uint32_t>(sections_.size()); --i > 0;) {
    const std::uint32_t hash = ProfileNameHash(ParseProfileLine(text_.Of(sections_[i].header)).name);
    const auto [entry, isNew] = firstSection_.try_emplace(hash, i);
    if (!isNew) sections_[i].nextSection = std::exchange(entry.value(), i);
  }
}

bool ProfileImage::SameName(std::string_view left, std::string_view right) const {
  // Upper and lower case of a letter take the same number of bytes in every code page.
  if (left.size() != right.size()) return false;
  if (std::equal(left.begin(), left.end(), right.begin(),
                 [](char a, char b) { return a == b || AsciiUpper(a) == AsciiUpper(b); })) {
    if (IsAscii(left)) return true;
    if (left == right) return true;
  } else if (IsAscii(left) || IsAscii(right)) {
    return false;
  }
  return folding_ && folding_(left) == folding_(right);
}

std::uint32_t ProfileImage::FindSection(std::string_view name) const {
  name = TrimProfileBlanks(name);
  if (lastSection_ != kNone && name == lastName_) return lastSection_;
  const auto found = firstSection_.find(ProfileNameHash(name));
  std::uint32_t section = found == firstSection_.end() ? kNone : found->second;
  while (section != kNone && !SameName(ParseProfileLine(text_.Of(sections_[section].header)).name, name)) {
    section = sections_[section].nextSection;
  }
  if (section != kNone) {
    lastName_ = name;
    lastSection_ = section;
  }
  return section;
}

std::uint32_t ProfileImage::FindKey(const ProfileSection& section, std::string_view key,
                                    std::optional<std::string_view>* text) const {
  key = TrimProfileBlanks(key);
  if (key.empty()) return kNone;
  return section.Find(ProfileNameHash(key), [this, key, text](const Line& line) {
    const std::string_view bytes = text_.Of(line);
    if (IsSpelled(bytes, key)) {
      if (text != nullptr) *text = bytes.substr(key.size() + 1);
      return true;
    }
    const ProfileLine parsed = ParseProfileLine(bytes);
    if (!SameName(parsed.name, key)) return false;
    if (text != nullptr) *text = parsed.text;
    return true;
  });
}

std::optional<std::string_view> ProfileImage::Value(std::string_view section, std::string_view key) const {
  const std::uint32_t found = FindSection(section);
  if (found == kNone) return std::nullopt;
  std::optional<std::string_view> text;
  FindKey(sections_[found], key, &text);
  if (!text) return std::nullopt;
  return Unquoted(StoredValue(*text));
}

std::vector<std::string_view> ProfileImage::SectionNames() const {
  std::vector<std::string_view> names;
  for (const ProfileSection& section : sections_) {
    if (section.header.length != 0) names.push_back(ParseProfileLine(text_.Of(section.header)).name);
  }
  return names;
}

std::string_view ProfileImage::Objection(const ProfileChange& change) {
  if (!change.key || !change.value) return {};
  const std::string_view key = TrimProfileBlanks(*change.key);
  if (change.section.find_first_of(kLineBreakers) != std::string_view::npos ||
      change.key->find_first_of(kLineBreakers) != std::string_view::npos) {
    return "the name holds a line break";
  }
  if (change.value->find_first_of(kLineBreakers) != std::string_view::npos)
    return "the value holds a line break";
  if (key.empty() || key.front() == '[' || key.front() == ';' || key.find('=') != std::string_view::npos) {
    return "the key could not be found again";
  }
  return {};
}

bool ProfileImage::Holds(const Line& line, std::string_view value) const {
  const std::string_view bytes = text_.Of(line);
  const ProfileLine parsed = ParseProfileLine(bytes);
  if (!parsed.text) return false;
  if (StoredValue(*parsed.text) == value) return true;
  std::string_view whole = bytes.substr(bytes.find('=') + 1);  // with the blanks at its end
  whole.remove_suffix(LineEndOf(bytes).size());
  return TrimLeadingProfileBlanks(whole) == value;
}

bool ProfileImage::WouldChange(const ProfileChange& change) const {
  const std::uint32_t section = FindSection(change.section);
  if (section == kNone) return change.key && change.value;
  if (!change.key) return true;
  const std::uint32_t position = FindKey(sections_[section], *change.key);
  if (position == kNone) return change.value.has_value();
  if (!change.value) return true;
  return !Holds(sections_[section].Lines()[position], TrimLeadingProfileBlanks(*change.value));
}

bool ProfileImage::Apply(const ProfileChange& change) {
  if (!WouldChange(change)) return false;
  if (change.key && change.value) {
    Set(change.section, TrimProfileBlanks(*change.key), TrimLeadingProfileBlanks(*change.value));
  } else if (change.key) {
    RemoveKey(FindSection(change.section), *change.key);
  } else {
    RemoveSection(FindSection(change.section));
  }
  return true;
}

void ProfileImage::Set(std::string_view section, std::string_view key, std::string_view value) {
  const std::uint32_t found = FindSection(section);
  ProfileSection& target = found == kNone ? AddSection(TrimProfileBlanks(section)) : sections_[found];
  const std::uint32_t position = FindKey(target, key);
  std::string bytes;
  if (position == kNone) {
    bytes.append(key).append("=").append(value).append(lineEnd_);
    CloseLine(target.LastFilled());
    target.Add(NewLine(bytes, ProfileNameHash(key)));
    return;
  }
  Line& line = target.At(position);
  const std::string_view before = text_.Of(line);
  bytes.append(ParseProfileLine(before).name).append("=").append(value).append(LineEndOf(before));
  Rewrite(line, bytes);
}

ProfileSection& ProfileImage::AddSection(std::string_view name) {
  if (sections_.empty()) sections_.emplace_back(Line{}, std::vector<Line>{}, 0U);
  const auto last = std::find_if(sections_.rbegin(), sections_.rend(),
                                 [](ProfileSection& section) { return section.Last().length != 0; });
  if (last != sections_.rend()) CloseLine(last->Last());
  std::string header;
  header.append("[").append(name).append("]").append(lineEnd_);
  const auto position = static_cast<std::uint32_t>(sections_.size());
  ProfileSection& added = sections_.emplace_back(NewLine(header, 0), std::vector<Line>{}, 0U);
  const auto [entry, isNew] = firstSection_.try_emplace(ProfileNameHash(name), position);
  if (!isNew) {
    std::uint32_t other = entry->second;
    while (sections_[other].nextSection != kNone) other = sections_[other].nextSection;
    sections_[other].nextSection = position;
  }
  return added;
}

void ProfileImage::RemoveKey(std::uint32_t section, std::string_view key) {
  ProfileSection& target = sections_[section];
  const std::uint32_t position = FindKey(target, key);
  length_ -= target.Lines()[position].length;
  target.Remove(position, [this](const Line& line) { return TrimProfileBlanks(text_.Of(line)).empty(); });
}

void ProfileImage::RemoveSection(std::uint32_t section) {
  ProfileSection& target = sections_[section];
  const auto entry = firstSection_.find(ProfileNameHash(ParseProfileLine(text_.Of(target.header)).name));
  std::uint32_t* link = &entry.value();
  while (*link != section) link = &sections_[*link].nextSection;
  *link = target.nextSection;
  if (entry->second == kNone) firstSection_.erase(entry);
  length_ -= target.header.length;
  for (const Line& line : target.Lines()) length_ -= line.length;
  target.Clear();
  lastSection_ = kNone;
}

ProfileImage::Line ProfileImage::NewLine(std::string_view bytes, std::uint32_t nameHash) {
  Line line;
  line.nameHash = nameHash;
  Rewrite(line, bytes);
  return line;
}

void ProfileImage::Rewrite(Line& line, std::string_view bytes) {
  length_ = length_ - line.length + bytes.size();
  text_.Replace(line, bytes);
}

void ProfileImage::CloseLine(Line& line) {
  if (line.length == 0 || !LineEndOf(text_.Of(line)).empty()) return;
  Rewrite(line, std::string(text_.Of(line)).append(lineEnd_));
}

Pieces ProfileImage::Content() const {
  Pieces content{text_.Original().substr(0, markLength_)};
  const auto add = [&](const Line& line) {
    const std::string_view next = text_.Of(line);
    std::string_view& last = content.back();
    if (last.data() + last.size() == next.data()) {  // lines that stand behind one another in memory are one
      last = {last.data(), last.size() + next.size()};
    } else if (!next.empty()) {
      content.push_back(next);
    }
  };
  for (const ProfileSection& section : sections_) {
    if (const std::optional<Line> whole = section.Whole()) {
      add(*whole);
      continue;
    }
    add(section.header);
    for (const Line& line : section.Lines()) add(line);
  }
  return content;
}

}  // namespace qb
