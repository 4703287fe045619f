#include "apps/qbt/Findings.h"

#include <algorithm>

namespace qb {

std::size_t Findings::Count(Severity severity) const {
  return static_cast<std::size_t>(
      std::count_if(list_.begin(), list_.end(),
                    [severity](const Finding& finding) { return finding.severity == severity; }));
}

void Findings::Sort() {
  std::stable_sort(list_.begin(), list_.end(), [](const Finding& one, const Finding& other) {
    return one.line - 1 < other.line - 1;  // 0 becomes the greatest number
  });
}

}  // namespace qb
