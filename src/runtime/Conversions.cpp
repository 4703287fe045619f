#include "runtime/Conversions.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

struct LeadingNumber {
  double value = 0;
  std::size_t length = 0;
};

/// The greatest number for one that is too great, 0 for one that is too close to 0.
double NumberOutOfRange(const std::string& number) {
  std::istringstream stream(number);
  stream.imbue(std::locale::classic());
  double value = 0;
  stream >> value;
  return value;
}

/// The decimal number at the front: a sign, digits, a point and digits, an exponent. No hexadecimal, no
/// names.
LeadingNumber TakeNumber(std::string_view text) {
  const bool plus = !text.empty() && text.front() == '+';
  const std::string_view number = plus ? text.substr(1) : text;
  const std::size_t digit = number.find_first_not_of('-');
  if (digit > 1 || (plus && digit == 1)) return {};
  const char first = number[digit];
  const bool startsNumber = (first >= '0' && first <= '9') || first == '.';
  if (!startsNumber) return {};
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error == std::errc::invalid_argument) return {};
  if (error == std::errc::result_out_of_range) value = NumberOutOfRange(std::string(number.data(), end));
  return {value, static_cast<std::size_t>(end - number.data()) + (plus ? 1 : 0)};
}

std::int32_t Rounded(double value, std::string_view text) {
  const double rounded = std::nearbyint(value);  // half to even
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    throw RuntimeError(failure::kOverflow, {}, "Overflow: '" + std::string(FirstCharacters(text, 40)) + "'");
  }
  return static_cast<std::int32_t>(rounded);
}

}  // namespace

std::int32_t LenientNumber(std::string_view text) {
  return Rounded(TakeNumber(TrimLeft(text)).value, text);
}

std::int32_t StrictNumber(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  const LeadingNumber number = TakeNumber(trimmed);
  if (number.length == 0 || number.length != trimmed.size()) {
    throw RuntimeError(failure::kTypeMismatch);
  }
  return Rounded(number.value, text);
}

std::string BooleanText(bool value) {
  return value ? "True" : "False";
}

}  // namespace qb
