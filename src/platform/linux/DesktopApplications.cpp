#include "platform/linux/DesktopApplications.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <array>
#include <memory>

#include "platform/linux/ExecLine.h"
#include "runtime/Text.h"

namespace qb {
namespace {

struct ReleaseObject {
  void operator()(void* object) const { g_object_unref(object); }
};
template <class Object>
using Reference = std::unique_ptr<Object, ReleaseObject>;
using OwnText = std::unique_ptr<char, decltype(&g_free)>;

constexpr std::array kProgramTypes{
    "application/x-executable",
    "application/x-pie-executable",
    "application/x-sharedlib",
    "application/x-object",
    "application/x-desktop",
    "application/x-dosexec",
    "application/x-ms-dos-executable",
    "application/x-msdos-program",
    "application/x-msdownload",
    "application/x-msi",
    "application/vnd.microsoft.portable-executable",
    "application/x-java-archive",
    "application/java-archive",
    "application/vnd.appimage",
    "application/x-iso9660-appimage",
    "application/vnd.flatpak.ref",
};

std::string ContentType(const std::string& native) {
  const Reference<GFile> file(g_file_new_for_path(native.c_str()));
  const Reference<GFileInfo> info(g_file_query_info(file.get(), G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE,
                                                    G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
  const char* const type = info ? g_file_info_get_content_type(info.get()) : nullptr;
  return type != nullptr ? type : "application/octet-stream";
}

std::string KeyText(GKeyFile* entry, const std::string& group, const char* key) {
  const OwnText text(g_key_file_get_string(entry, group.c_str(), key, nullptr), &g_free);
  return text ? text.get() : "";
}

/// The group of the entry that holds the command of the verb; empty if there is none.
std::string GroupOfVerb(GDesktopAppInfo* application, std::string_view verb) {
  if (EqualIgnoringCase(verb, "Open")) return "Desktop Entry";
  for (const char* const* action = g_desktop_app_info_list_actions(application); *action != nullptr;
       ++action) {
    if (EqualIgnoringCase(verb, *action)) return std::string("Desktop Action ") + *action;
  }
  return {};
}

}  // namespace

std::optional<std::string> BrowserCommandLine() {
  const Reference<GAppInfo> browser(g_app_info_get_default_for_uri_scheme("http"));
  const char* const line = browser ? g_app_info_get_commandline(browser.get()) : nullptr;
  if (line == nullptr) return std::nullopt;
  return WithoutFieldCodes(line);
}

bool IsProgramFile(const std::string& native) {
  const std::string type = ContentType(native);
  for (const char* const program : kProgramTypes) {
    if (g_content_type_is_a(type.c_str(), program) != FALSE) return true;
  }
  return false;
}

std::vector<std::string> DesktopCommand(const std::string& file, std::string_view verb,
                                        const std::vector<std::string>& furtherFiles) {
  const Reference<GAppInfo> application(g_app_info_get_default_for_type(ContentType(file).c_str(), FALSE));
  if (!application || !G_IS_DESKTOP_APP_INFO(application.get())) return {};
  GDesktopAppInfo* const desktop = G_DESKTOP_APP_INFO(application.get());
  const char* const entryFile = g_desktop_app_info_get_filename(desktop);
  const std::string group = GroupOfVerb(desktop, verb);
  if (entryFile == nullptr || group.empty()) return {};
  const std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> entry(g_key_file_new(), &g_key_file_unref);
  if (g_key_file_load_from_file(entry.get(), entryFile, G_KEY_FILE_NONE, nullptr) == FALSE) return {};

  ExecFields fields;
  fields.files = {file};
  fields.files.insert(fields.files.end(), furtherFiles.begin(), furtherFiles.end());
  fields.icon = KeyText(entry.get(), "Desktop Entry", "Icon");
  fields.name = g_app_info_get_name(application.get());
  fields.entryFile = entryFile;
  std::vector<std::string> command = ExecArguments(KeyText(entry.get(), group, "Exec"), fields);
  const bool inTerminal = g_key_file_get_boolean(entry.get(), "Desktop Entry", "Terminal", nullptr) != FALSE;
  if (inTerminal && !command.empty()) command.insert(command.begin(), {"x-terminal-emulator", "-e"});
  return command;
}

}  // namespace qb
