#include "platform/ProfileLine.h"

#include <algorithm>

namespace qb {
namespace {

constexpr char kEndOfTextFile = 0x1A;  // old editors end a file with it
constexpr std::size_t kHashedBytes = 64;

bool IsQuote(char byte) {
  return byte == '"' || byte == '\'';
}

}  // namespace

bool IsProfileBlank(char byte) {
  return byte == ' ' || byte == '\t' || byte == '\v' || byte == '\f' || byte == '\r' || byte == '\n' ||
         byte == kEndOfTextFile;
}

std::string_view TrimLeadingProfileBlanks(std::string_view text) {
  while (!text.empty() && IsProfileBlank(text.front())) text.remove_prefix(1);
  return text;
}

std::string_view TrimProfileBlanks(std::string_view text) {
  text = TrimLeadingProfileBlanks(text);
  while (!text.empty() && IsProfileBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view UpToFirstNul(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

ProfileLine ParseProfileLine(std::string_view line) {
  line = TrimProfileBlanks(line);
  if (line.empty()) return {};
  if (line.front() == ';') return {ProfileLine::Kind::kComment, {}, {}};
  if (line.front() == '[') {
    // The last bracket counts. Without one the line is an ordinary key.
    const std::size_t end = line.rfind(']');
    if (end != std::string_view::npos) {
      const std::string_view name = TrimProfileBlanks(line.substr(1, end - 1));
      return {ProfileLine::Kind::kSection, UpToFirstNul(name), {}};
    }
  }
  const std::size_t sign = line.find('=');
  const std::string_view name = UpToFirstNul(TrimProfileBlanks(line.substr(0, sign)));
  if (sign == std::string_view::npos) return {ProfileLine::Kind::kKey, name, {}};
  return {ProfileLine::Kind::kKey, name, line.substr(sign + 1)};
}

std::string_view StoredValue(std::string_view text) {
  return UpToFirstNul(TrimProfileBlanks(text));
}

std::string_view Unquoted(std::string_view value) {
  const bool enclosed = value.size() >= 2 && IsQuote(value.front()) && value.back() == value.front();
  return enclosed ? value.substr(1, value.size() - 2) : value;
}

std::uint32_t ProfileNameHash(std::string_view name) {
  std::uint32_t hash = 2166136261U;
  for (const char character : name.substr(0, kHashedBytes)) {
    auto byte = static_cast<unsigned char>(character);
    if (byte >= 0x80U) break;
    if (byte >= 'a' && byte <= 'z') byte = static_cast<unsigned char>(byte - 32U);
    hash = (hash ^ byte) * 16777619U;
  }
  return std::max(hash, 1U);
}

}  // namespace qb
