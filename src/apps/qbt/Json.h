#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace qb {

/// Values keep the order in which they were put in.
using Json = nlohmann::ordered_json;

/// The text of a result, with a line end. What is no UTF-8 is replaced.
inline std::string JsonText(const Json& value) {
  constexpr int kIndent = 2;
  return value.dump(kIndent, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace qb
