#include "platform/ProfileLine.h"

#include <algorithm>

#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::size_t kHashedBytes = 64;
constexpr std::uint64_t kHighBits = 0x8080808080808080U;
constexpr std::uint64_t kCaseBlind = 0xDFDFDFDFDFDFDFDFU;  // without the bit that tells small letters
constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15U;

bool IsQuote(char byte) {
  return byte == '"' || byte == '\'';
}

}  // namespace

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

std::string ValueThatReadsBack(std::string_view text) {
  std::string value(text);
  return Unquoted(StoredValue(text)) == text ? value : '"' + value + '"';
}

std::uint32_t ProfileNameHash(std::string_view name) {
  std::uint64_t hash = name.size();
  name = name.substr(0, kHashedBytes);
  while (!name.empty()) {
    std::uint64_t bytes = EightBytes(name);
    const std::uint64_t foreign = bytes & kHighBits;
    if (foreign != 0)
      bytes &= (foreign & (~foreign + 1)) - 1;  // only what stands in front of the first such byte
    hash = (hash ^ (bytes & kCaseBlind)) * kGoldenRatio;
    hash ^= hash >> 32U;
    if (foreign != 0) break;
    name.remove_prefix(std::min(name.size(), sizeof bytes));
  }
  return std::max(static_cast<std::uint32_t>(hash), 1U);
}

}  // namespace qb
