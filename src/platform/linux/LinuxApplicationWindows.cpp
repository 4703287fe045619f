#include "platform/linux/LinuxApplicationWindows.h"

#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::string_view kCloseKeys = "%{F4}";

/// All names on the bus that stand for an application.
std::vector<std::string> ApplicationNames(SessionBus& bus) {
  BusError error;
  const Variant answer =
      bus.Call({"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ListNames"},
               nullptr, "(as)", error);
  std::vector<std::string> names;
  if (answer == nullptr) return names;
  GVariantIter* all = nullptr;
  g_variant_get(answer.get(), "(as)", &all);
  const std::unique_ptr<GVariantIter, decltype(&g_variant_iter_free)> owner(all, &g_variant_iter_free);
  const char* name = nullptr;
  while (g_variant_iter_next(all, "&s", &name) != FALSE) {
    if (std::string_view(name).starts_with(ddebus::kNamePrefix)) names.emplace_back(name);
  }
  return names;
}

/// The title that a program gives its window; empty if it gives none.
std::string TitleOf(SessionBus& bus, const std::string& name) {
  BusError error;
  const Variant answer =
      bus.Call({name, ddebus::kApplicationPath, "org.freedesktop.DBus.Properties", "Get"},
               g_variant_new("(ss)", ddebus::kApplicationInterface, "Title"), "(v)", error);
  if (answer == nullptr) return {};
  GVariant* boxed = nullptr;
  g_variant_get(answer.get(), "(v)", &boxed);
  const Variant title(boxed);
  return g_variant_is_of_type(boxed, G_VARIANT_TYPE_STRING) != FALSE ? g_variant_get_string(boxed, nullptr)
                                                                     : std::string();
}

}  // namespace

std::uintptr_t LinuxApplicationWindows::Find(std::optional<std::string_view> windowClass,
                                             std::optional<std::string_view> title) {
  if (!windowClass || title) return 0;
  return bus_.OwnerOf(ddebus::NameOf(*windowClass)).empty() ? 0 : 1;
}

std::string LinuxApplicationWindows::OwnerOfTitle(std::string_view title) {
  for (const std::string& name : ApplicationNames(bus_)) {
    if (TitleOf(bus_, name) == title) return bus_.OwnerOf(name);
  }
  return {};
}

void LinuxApplicationWindows::SendKeys(std::string_view title, std::string_view keys) {
  if (keys != kCloseKeys) RaiseAbout(failure::kInvalidArgument, keys);
  const std::string owner = OwnerOfTitle(title);
  if (owner.empty()) RaiseAbout(failure::kInvalidArgument, title);
  BusError error;
  // A program that closes at once may be gone before it answers.
  bus_.Call({owner, ddebus::kApplicationPath, ddebus::kApplicationInterface, "Close"}, nullptr, "()", error);
}

}  // namespace qb
