#include "model/CProperties.h"

namespace qb {

CProperty& CProperties::Add(std::string_view name, std::string_view value, std::string_view info,
                            std::string_view key) {
  properties_.Add({name, value, info}, key);
  return properties_.Item(properties_.Count());
}

}  // namespace qb
