#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace qb {

/// A value that carries its own type, as automation interfaces pass it. Without a value it is empty.
using TaggedValue = std::variant<std::monostate, bool, std::int32_t, double, std::string>;

/// The value as text: a number in digits with `.`, a boolean as "True" or "False", an empty value as "".
std::string TextOf(const TaggedValue& value);

}  // namespace qb
