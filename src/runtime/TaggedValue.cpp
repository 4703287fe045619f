#include "runtime/TaggedValue.h"

#include <fmt/format.h>

#include "runtime/Conversions.h"

namespace qb {
namespace {

struct AsText {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(bool value) const { return BooleanText(value); }
  std::string operator()(std::int32_t value) const { return std::to_string(value); }
  std::string operator()(double value) const { return fmt::format("{}", value); }
  std::string operator()(const std::string& value) const { return value; }
};

}  // namespace

std::string TextOf(const TaggedValue& value) {
  return std::visit(AsText{}, value);
}

}  // namespace qb
