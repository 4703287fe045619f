#include "platform/linux/LinuxDde.h"

#include <utility>

#include "runtime/RuntimeError.h"

namespace qb {
namespace {

/// A conversation with the program that owned the name when it began: one that takes the name over later has
/// no part in it.
class BusConversation : public DdeConversation {
 public:
  BusConversation(std::shared_ptr<SessionBus> bus, std::string owner, std::string path)
      : bus_(std::move(bus)), owner_(std::move(owner)), path_(std::move(path)) {}

  std::string Request(std::string_view item) override {
    if (g_utf8_validate(item.data(), static_cast<gssize>(item.size()), nullptr) == FALSE) {
      throw RuntimeError(failure::kInvalidArgument);
    }
    const std::string text(item);
    BusError error;
    const Variant answer = bus_->Call({owner_, path_, ddebus::kConversationInterface, "Request"},
                                      g_variant_new("(s)", text.c_str()), "(s)", error);
    if (answer == nullptr) Raise(*error);
    const char* words = nullptr;
    g_variant_get(answer.get(), "(&s)", &words);
    return words;
  }

  bool IsOpen() override { return bus_->OwnerOf(owner_) == owner_; }

 private:
  [[noreturn]] void Raise(const GError& error) {
    if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT)) throw RuntimeError(failure::kDdeTimeout);
    if (!IsOpen()) throw RuntimeError(failure::kForeignApplicationQuit);
    if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_INVALID_ARGUMENT)) {
      throw RuntimeError(failure::kDdeWrongFormat);
    }
    RaiseAbout(failure::kForeignApplicationRefuses, error.message);
  }

  std::shared_ptr<SessionBus> bus_;
  std::string owner_;
  std::string path_;
};

}  // namespace

std::unique_ptr<DdeConversation> LinuxDde::Connect(std::string_view application, std::string_view topic) {
  std::string owner = bus_->OwnerOf(ddebus::NameOf(application));
  if (owner.empty()) RaiseAbout(failure::kNoForeignApplication, application);
  return std::make_unique<BusConversation>(bus_, std::move(owner), ddebus::PathOf(topic));
}

}  // namespace qb
