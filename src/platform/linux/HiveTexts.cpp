#include "platform/linux/HiveTexts.h"

#include <fmt/format.h>

#include <array>

namespace qb {
namespace {

struct Escape {
  char byte;
  std::string_view text;
};

constexpr std::array kValueEscapes{Escape{'\r', "%0D"}, Escape{'\n', "%0A"}, Escape{'\0', "%00"},
                                   Escape{'%', "%25"}};

const Escape* EscapeAtFront(std::string_view text) {
  for (const Escape& escape : kValueEscapes) {
    if (text.starts_with(escape.text)) return &escape;
  }
  return nullptr;
}

/// Writes bytes that a name of a profile file cannot hold as a percent sign and two digits.
std::string SafeName(std::string_view name, std::string_view unsafe) {
  std::string safe;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool atEdge = i == 0 || i + 1 == name.size();
    const auto byte = static_cast<unsigned char>(name[i]);
    const bool isUnsafe = byte < 0x20U || byte == '%' || unsafe.find(name[i]) != std::string_view::npos;
    if (isUnsafe || (byte == ' ' && atEdge)) {
      safe += fmt::format("%{:02X}", byte);
    } else {
      safe.push_back(name[i]);
    }
  }
  return safe;
}

}  // namespace

std::string HiveValueText(std::string_view text) {
  std::string stored = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%') {
      stored += EscapeAtFront(text.substr(i)) != nullptr ? "%25" : "%";
    } else if (text[i] == '\r') {
      stored += "%0D";
    } else if (text[i] == '\n') {
      stored += "%0A";
    } else if (text[i] == '\0') {
      stored += "%00";
    } else {
      stored.push_back(text[i]);
    }
  }
  return stored + "\"";
}

std::string TextOfHiveValue(std::string_view stored) {
  std::string text;
  while (!stored.empty()) {
    const Escape* const escape = EscapeAtFront(stored);
    text.push_back(escape != nullptr ? escape->byte : stored.front());
    stored.remove_prefix(escape != nullptr ? escape->text.size() : 1);
  }
  return text;
}

std::string HiveValueName(std::string_view name) {
  return name.empty() ? "@" : SafeName(name, name == "@" ? "@" : "=;[");
}

std::string HiveSectionName(std::string_view hive, std::string_view key) {
  return fmt::format("{}\\{}", hive, SafeName(key, ""));
}

}  // namespace qb
