#pragma once

#include <chrono>
#include <memory>

#include "platform/Dde.h"

namespace qb {

class DdeInstance;

/// Conversations through the system's DDE library. A request carries at most 255 characters; the first
/// contact with an empty item sends nothing, since the library knows no item without a name.
class Win32Dde : public Dde {
 public:
  static constexpr std::chrono::seconds kTimeout{10};
  /// `timeout` bounds the wait for each answer.
  explicit Win32Dde(std::chrono::milliseconds timeout = kTimeout) : timeout_(timeout) {}

  std::unique_ptr<DdeConversation> Connect(std::string_view application, std::string_view topic) override;

 private:
  std::chrono::milliseconds timeout_;
  std::shared_ptr<DdeInstance> instance_;
};

}  // namespace qb
