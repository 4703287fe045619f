#include "platform/linux/SessionBus.h"

#include <fmt/format.h>

#include <utility>

namespace qb {
namespace {

constexpr const char* kBus = "org.freedesktop.DBus";
constexpr const char* kBusPath = "/org/freedesktop/DBus";

/// A text as an element of a bus name or an object path: ASCII letters stay, and digits behind the first
/// character; every other byte becomes `_` and its two hexadecimal digits.
std::string Element(std::string_view text) {
  std::string element;
  for (const char byte : text) {
    const bool stays = g_ascii_isalpha(byte) || (g_ascii_isdigit(byte) && !element.empty());
    if (stays) {
      element.push_back(byte);
    } else {
      element += fmt::format("_{:02x}", static_cast<unsigned char>(byte));
    }
  }
  return element.empty() ? "_" : element;
}

}  // namespace

SessionBus::~SessionBus() {
  if (connection_ != nullptr) g_object_unref(connection_);
}

GDBusConnection* SessionBus::Connection(BusError& error) {
  if (connection_ != nullptr && g_dbus_connection_is_closed(connection_) == FALSE) return connection_;
  if (connection_ != nullptr) g_object_unref(std::exchange(connection_, nullptr));
  GError* failed = nullptr;
  const std::unique_ptr<char, decltype(&g_free)> address(
      g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, &failed), &g_free);
  if (address != nullptr) {
    const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                         G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    connection_ = g_dbus_connection_new_for_address_sync(address.get(), flags, nullptr, nullptr, &failed);
  }
  error.reset(failed);
  return connection_;
}

Variant SessionBus::Call(const BusCall& call, GVariant* arguments, const char* answerType, BusError& error) {
  const Variant owned(arguments == nullptr ? nullptr : g_variant_ref_sink(arguments));
  GDBusConnection* const connection = Connection(error);
  if (connection == nullptr) return nullptr;
  GError* failed = nullptr;
  Variant answer(g_dbus_connection_call_sync(connection, call.destination.c_str(), call.path.c_str(),
                                             call.interface.c_str(), call.method.c_str(), arguments,
                                             G_VARIANT_TYPE(answerType), G_DBUS_CALL_FLAGS_NO_AUTO_START,
                                             static_cast<int>(timeout_.count()), nullptr, &failed));
  error.reset(failed);
  return answer;
}

std::string SessionBus::OwnerOf(std::string_view name) {
  const std::string text(name);
  BusError error;
  const Variant answer =
      Call({kBus, kBusPath, kBus, "GetNameOwner"}, g_variant_new("(s)", text.c_str()), "(s)", error);
  if (answer == nullptr) return {};
  const char* owner = nullptr;
  g_variant_get(answer.get(), "(&s)", &owner);
  return owner;
}

namespace ddebus {

std::string NameOf(std::string_view application) {
  return std::string(kNamePrefix) + Element(application);
}

std::string PathOf(std::string_view topic) {
  return std::string(kApplicationPath) + '/' + Element(topic);
}

}  // namespace ddebus

}  // namespace qb
