#pragma once

#include <gio/gio.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace qb {

struct ReleaseVariant {
  void operator()(GVariant* value) const { g_variant_unref(value); }
};
using Variant = std::unique_ptr<GVariant, ReleaseVariant>;

struct ReleaseError {
  void operator()(GError* error) const { g_error_free(error); }
};
using BusError = std::unique_ptr<GError, ReleaseError>;

/// One method call on the session bus.
struct BusCall {
  std::string destination;
  std::string path;
  std::string interface;
  std::string method;
};

/// The desktop's message bus over a connection of its own, opened at the first use and anew after the bus
/// was away. A bus that ends does not end the program.
class SessionBus {
 public:
  /// `timeout` bounds every call.
  explicit SessionBus(std::chrono::milliseconds timeout) : timeout_(timeout) {}
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;
  ~SessionBus();

  /// Calls a method and returns its answer, a tuple of the type `answerType`. Starts no program. Nothing if
  /// the call failed; `error` then says why. Nothing inside the program runs meanwhile. Takes `arguments`.
  Variant Call(const BusCall& call, GVariant* arguments, const char* answerType, BusError& error);

  /// The connection's name that owns `name` at this moment; empty if none does.
  std::string OwnerOf(std::string_view name);

 private:
  GDBusConnection* Connection(BusError& error);

  std::chrono::milliseconds timeout_;
  GDBusConnection* connection_ = nullptr;
};

/// Name, object and interfaces under which a program offers itself; docs/dde-on-linux.md describes them.
namespace ddebus {
inline constexpr std::string_view kNamePrefix = "Quillbank.Dde.";
inline constexpr const char* kApplicationPath = "/Quillbank/Dde";
inline constexpr const char* kApplicationInterface = "Quillbank.Dde.Application";
inline constexpr const char* kConversationInterface = "Quillbank.Dde.Conversation";

/// The bus name of an application, and the path of the object that stands for a topic.
std::string NameOf(std::string_view application);
std::string PathOf(std::string_view topic);
}  // namespace ddebus

}  // namespace qb
