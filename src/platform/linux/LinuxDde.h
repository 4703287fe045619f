#pragma once

#include <chrono>
#include <memory>

#include "platform/Dde.h"
#include "platform/linux/SessionBus.h"

namespace qb {

/// Conversations over the session bus: an application is a bus name, a topic one of its objects, and a
/// request one method call with the item's text. An unknown topic shows at the first request, as 285.
class LinuxDde : public Dde {
 public:
  static constexpr std::chrono::seconds kTimeout{10};
  /// `timeout` bounds the wait for each answer.
  explicit LinuxDde(std::chrono::milliseconds timeout = kTimeout)
      : bus_(std::make_shared<SessionBus>(timeout)) {}

  std::unique_ptr<DdeConversation> Connect(std::string_view application, std::string_view topic) override;

 private:
  std::shared_ptr<SessionBus> bus_;
};

}  // namespace qb
