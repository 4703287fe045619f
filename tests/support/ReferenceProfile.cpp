#include "support/ReferenceProfile.h"

#include <algorithm>
#include <cctype>

namespace qb {
namespace {

constexpr std::string_view kBlanks = " \t\v\f\r\n\x1A";

std::string Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

std::string Upper(std::string text) {
  for (char& byte : text) byte = static_cast<char>(std::toupper(static_cast<unsigned char>(byte)));
  return text;
}

std::string UpToNul(const std::string& text) {
  return text.substr(0, text.find('\0'));
}

std::string LineEnd(const std::string& line) {
  if (line.ends_with("\r\n")) return "\r\n";
  if (line.ends_with('\n')) return "\n";
  return line.ends_with('\r') ? "\r" : "";
}

std::optional<std::string> HeaderName(const std::string& line) {
  const std::string text = Trimmed(line);
  if (text.empty() || text[0] != '[' || text.rfind(']') == std::string::npos) return std::nullopt;
  return UpToNul(Trimmed(text.substr(1, text.rfind(']') - 1)));
}

std::string KeyName(const std::string& line) {
  const std::string text = Trimmed(line);
  if (text.empty() || text[0] == ';' || HeaderName(line)) return {};
  return UpToNul(Trimmed(text.substr(0, text.find('='))));
}

}  // namespace

ReferenceProfile::ReferenceProfile(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) {
    mark_ = bytes.substr(0, 3);
    bytes.remove_prefix(3);
  }
  std::string line;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    line.push_back(bytes[i]);
    const bool carriageAlone = bytes[i] == '\r' && (i + 1 == bytes.size() || bytes[i + 1] != '\n');
    if (bytes[i] != '\n' && !carriageAlone) continue;
    lines_.push_back(line);
    line.clear();
  }
  if (!line.empty()) lines_.push_back(line);
  const auto feed = std::find_if(lines_.begin(), lines_.end(),
                                 [](const std::string& each) { return each.ends_with('\n'); });
  if (feed != lines_.end()) lineEnd_ = LineEnd(*feed);
}

std::optional<ReferenceProfile::Range> ReferenceProfile::Section(std::string_view name) const {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const auto header = HeaderName(lines_[i]);
    if (!header || Upper(*header) != Upper(Trimmed(name))) continue;
    Range range{i, i + 1};
    while (range.end < lines_.size() && !HeaderName(lines_[range.end])) ++range.end;
    return range;
  }
  return std::nullopt;
}

std::optional<std::size_t> ReferenceProfile::Key(const Range& range, std::string_view key) const {
  const std::string wanted = Upper(Trimmed(key));
  for (std::size_t i = range.header + 1; i < range.end; ++i) {
    if (!wanted.empty() && Upper(KeyName(lines_[i])) == wanted) return i;
  }
  return std::nullopt;
}

std::optional<std::string> ReferenceProfile::Value(std::string_view section, std::string_view key) const {
  const auto range = Section(section);
  const auto line = range ? Key(*range, key) : std::nullopt;
  if (!line || lines_[*line].find('=') == std::string::npos) return std::nullopt;
  std::string value = UpToNul(Trimmed(lines_[*line].substr(lines_[*line].find('=') + 1)));
  const bool quoted =
      value.size() > 1 && value.front() == value.back() && (value[0] == '"' || value[0] == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::vector<std::string> ReferenceProfile::SectionNames() const {
  std::vector<std::string> names;
  for (const std::string& line : lines_) {
    if (const auto name = HeaderName(line)) names.push_back(*name);
  }
  return names;
}

void ReferenceProfile::CloseLine(std::size_t line) {
  if (LineEnd(lines_[line]).empty()) lines_[line] += lineEnd_;
}

void ReferenceProfile::Set(std::string_view section, std::string_view key, std::string value) {
  value.erase(0, std::min(value.find_first_not_of(kBlanks), value.size()));
  auto range = Section(section);
  if (!range) {
    if (!lines_.empty()) CloseLine(lines_.size() - 1);
    lines_.push_back("[" + Trimmed(section) + "]" + lineEnd_);
    range = Range{lines_.size() - 1, lines_.size()};
  }
  if (const auto line = Key(*range, key)) {
    std::string& text = lines_[*line];
    const std::size_t sign = text.find('=');
    if (sign != std::string::npos) {
      std::string stored = text.substr(sign + 1, text.size() - sign - 1 - LineEnd(text).size());
      if (UpToNul(Trimmed(stored)) == value) return;
      stored.erase(0, std::min(stored.find_first_not_of(kBlanks), stored.size()));
      if (stored == value) return;
    }
    text = KeyName(text) + "=" + value + LineEnd(text);
    return;
  }
  std::size_t place = range->end;
  while (place > range->header + 1 && Trimmed(lines_[place - 1]).empty()) --place;
  CloseLine(place - 1);
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place), Trimmed(key) + "=" + value + lineEnd_);
}

void ReferenceProfile::Apply(const ProfileChange& change) {
  if (change.key && change.value) return Set(change.section, *change.key, std::string(*change.value));
  const auto range = Section(change.section);
  if (!range) return;
  const auto at = [this](std::size_t line) { return lines_.begin() + static_cast<std::ptrdiff_t>(line); };
  if (!change.key) {
    lines_.erase(at(range->header), at(range->end));
  } else if (const auto line = Key(*range, *change.key)) {
    lines_.erase(at(*line));
  }
}

std::string ReferenceProfile::Bytes() const {
  std::string bytes = mark_;
  for (const std::string& line : lines_) bytes += line;
  return bytes;
}

}  // namespace qb
