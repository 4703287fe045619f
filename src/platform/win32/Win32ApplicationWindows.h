#pragma once

#include "platform/Applications.h"

namespace qb {

class Win32ApplicationWindows : public ApplicationWindows {
 public:
  std::uintptr_t Find(std::optional<std::string_view> windowClass,
                      std::optional<std::string_view> title) override;
  /// A window that hangs is given up after a while, with 0 as its reply.
  std::int64_t SendCopyData(std::uintptr_t window, std::uintptr_t number,
                            std::optional<std::u16string_view> payload) override;
  /// The keys go to that window or to none: one that cannot come to the front is asked to close instead.
  void SendKeys(std::string_view title, std::string_view keys) override;
};

}  // namespace qb
