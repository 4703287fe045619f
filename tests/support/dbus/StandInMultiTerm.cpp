// A program that answers on the session bus as MultiTerm does over DDE: application "MT4WIN", topic
// "mt_init". The first argument says how: good; and hang, die, refuse, garbage, huge when an item comes that
// begins as the second argument does, or without one when it is to open a file. "number" gives numbers for
// texts, "wrong-title" a number as its title. The item "stand_in_items" gives all items so far, each with a
// line end.

#include <gio/gio.h>
#include <unistd.h>

#include <string>

namespace {

constexpr const char* kDescription = R"(<node>
  <interface name='Quillbank.Dde.Application'>
    <method name='Close'/>
    <property name='Title' type='s' access='read'/>
  </interface>
  <interface name='Quillbank.Dde.Conversation'>
    <method name='Request'><arg type='s' direction='in'/><arg type='s' direction='out'/></method>
  </interface>
</node>)";
constexpr const char* kNumberDescription = R"(<node>
  <interface name='Quillbank.Dde.Application'>
    <method name='Close'/>
    <property name='Title' type='i' access='read'/>
  </interface>
  <interface name='Quillbank.Dde.Conversation'>
    <method name='Request'><arg type='s' direction='in'/><arg type='i' direction='out'/></method>
  </interface>
</node>)";

std::string mode;
std::string theItem = "mt_open#";
std::string items;
GMainLoop* loop = nullptr;

bool GivesNumbers() {
  return mode == "number" || mode == "wrong-title";
}

void Answer(GDBusMethodInvocation* call, const std::string& text) {
  g_dbus_method_invocation_return_value(
      call, GivesNumbers() ? g_variant_new("(i)", 42) : g_variant_new("(s)", text.c_str()));
}

void OnRequest(GDBusMethodInvocation* call, const std::string& item) {
  if (item == "stand_in_items") return Answer(call, items);
  items += item + "\r\n";
  if (item.rfind(theItem, 0) != 0) return Answer(call, "mt_ok");
  if (mode == "hang") pause();
  if (mode == "die") _exit(3);
  if (mode == "garbage") return Answer(call, "\x01\x7F\r\n\t\u00A0\uFFFD");
  if (mode == "huge") return Answer(call, std::string(10'000'000, 'x'));
  if (mode == "refuse") {
    return g_dbus_method_invocation_return_dbus_error(call, "Quillbank.Dde.Error.NoSuchItem", "No such item");
  }
  Answer(call, "mt_ok");
}

void OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method, GVariant* arguments,
            GDBusMethodInvocation* call, void*) {
  if (g_str_equal(method, "Close")) {
    g_dbus_method_invocation_return_value(call, nullptr);
    g_main_loop_quit(loop);
    return;
  }
  const char* item = nullptr;
  g_variant_get(arguments, "(&s)", &item);
  OnRequest(call, item);
}

GVariant* OnProperty(GDBusConnection*, const char*, const char*, const char*, const char*, GError**, void*) {
  return GivesNumbers() ? g_variant_new_int32(42) : g_variant_new_string("TRADOS MultiTerm");
}

void Offer(GDBusConnection* bus, const char* path, GDBusInterfaceInfo* interface) {
  static const GDBusInterfaceVTable kCalls{OnCall, OnProperty, nullptr, {}};
  g_dbus_connection_register_object(bus, path, interface, &kCalls, nullptr, nullptr, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  mode = argc > 1 ? argv[1] : "good";
  if (argc > 2) theItem = argv[2];
  GDBusConnection* const bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
  if (bus == nullptr) return 1;
  GDBusNodeInfo* const node =
      g_dbus_node_info_new_for_xml(GivesNumbers() ? kNumberDescription : kDescription, nullptr);
  Offer(bus, "/Quillbank/Dde", g_dbus_node_info_lookup_interface(node, "Quillbank.Dde.Application"));
  Offer(bus, "/Quillbank/Dde/mt_5finit",
        g_dbus_node_info_lookup_interface(node, "Quillbank.Dde.Conversation"));
  // The name comes last: who sees it can ask.
  g_bus_own_name_on_connection(bus, "Quillbank.Dde.MT4WIN", G_BUS_NAME_OWNER_FLAGS_NONE, nullptr, nullptr,
                               nullptr, nullptr);
  loop = g_main_loop_new(nullptr, FALSE);
  g_main_loop_run(loop);
  // What was answered reaches the bus before the end.
  g_dbus_connection_flush_sync(bus, nullptr, nullptr);
  return 0;
}
