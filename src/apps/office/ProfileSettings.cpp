#include "apps/office/ProfileSettings.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

namespace qb::office {
namespace {

struct Setting {
  std::string path;
  std::string name;
  std::string value;
};

const std::array<Setting, 21> kSettings = {{
    // A document keeps its format without a question, and is stored when its user or we say so.
    {"/org.openoffice.Office.Common/Save/Document", "WarnAlienFormat", "false"},
    {"/org.openoffice.Office.Common/Save/Document", "AutoSave", "false"},
    {"/org.openoffice.Office.Recovery/AutoSave", "Enabled", "false"},
    {"/org.openoffice.Office.Recovery/RecoveryInfo", "Enabled", "false"},
    // Nothing stands between the user and the document at the first start.
    {"/org.openoffice.Office.Common/Misc", "FirstRun", "false"},
    {"/org.openoffice.Office.Common/Misc", "ShowTipOfTheDay", "false"},
    {"/org.openoffice.Office.Common/Misc", "CrashReport", "false"},
    {"/org.openoffice.Setup/Office", "ooSetupInstCompleted", "true"},
    {"/org.openoffice.Setup/Office", "MigrationCompleted", "true"},
    {"/org.openoffice.Office.UI.Infobar/Enabled", "WhatsNew", "false"},
    {"/org.openoffice.Office.UI.Infobar/Enabled", "Donate", "false"},
    {"/org.openoffice.Office.UI.Infobar/Enabled", "GetInvolved", "false"},
    // A package comes from elsewhere: its macros never run, and its links bring nothing in, without a
    // question.
    {"/org.openoffice.Office.Common/Security/Scripting", "MacroSecurityLevel", "3"},
    {"/org.openoffice.Office.Common/Security/Scripting", "DisableMacrosExecution", "true"},
    {"/org.openoffice.Office.Writer/Content/Update", "Link", "0"},
    {"/org.openoffice.Office.Calc/Content/Update", "Link", "1"},
    // Pictures beside a document are seen, those in the net are not: nobody listens at this address.
    {"/org.openoffice.Inet/Settings", "ooInetProxyType", "2"},
    {"/org.openoffice.Inet/Settings", "ooInetHTTPProxyName", "127.0.0.1"},
    {"/org.openoffice.Inet/Settings", "ooInetHTTPProxyPort", "9"},
    {"/org.openoffice.Inet/Settings", "ooInetHTTPSProxyName", "127.0.0.1"},
    {"/org.openoffice.Inet/Settings", "ooInetHTTPSProxyPort", "9"},
}};

/// Commands that load a document anew in its window. It would be another one then, whose saves nobody hears.
const std::array<std::string, 2> kDisabled = {"Reload", "EditDoc"};

constexpr std::string_view kBegin =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\" "
    "xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n";
constexpr std::string_view kEnd = "</oor:items>";

std::string Place(const Setting& setting) {
  return "<item oor:path=\"" + setting.path + "\"><prop oor:name=\"" + setting.name + '"';
}

std::string Item(const Setting& setting) {
  return Place(setting) + " oor:op=\"fuse\"><value>" + setting.value + "</value></prop></item>\n";
}

std::string PlaceOfDisabled(const std::string& command) {
  return R"(<item oor:path="/org.openoffice.Office.Commands/Execute/Disabled"><node oor:name=")" + command +
         '"';
}

std::string Disabling(const std::string& command) {
  return PlaceOfDisabled(command) + R"( oor:op="replace"><prop oor:name="Command" oor:op="fuse"><value>)" +
         command + "</value></prop></node></item>\n";
}

bool IsOurs(const std::string& line) {
  const auto isSet = [&line](const Setting& setting) { return line.starts_with(Place(setting)); };
  const auto isDisabled = [&line](const std::string& command) {
    return line.starts_with(PlaceOfDisabled(command));
  };
  return std::any_of(kSettings.begin(), kSettings.end(), isSet) ||
         std::any_of(kDisabled.begin(), kDisabled.end(), isDisabled);
}

}  // namespace

std::string WithSettings(const std::string& text) {
  std::string result;
  const std::size_t end = text.rfind(kEnd);
  if (end == std::string::npos) {
    // The office would not start with half a file.
    result = kBegin;
  } else {
    std::istringstream lines(text.substr(0, end));
    for (std::string line; std::getline(lines, line);) {
      if (!IsOurs(line)) result += line + '\n';
    }
  }
  for (const Setting& setting : kSettings) result += Item(setting);
  for (const std::string& command : kDisabled) result += Disabling(command);
  return result.append(kEnd) + '\n';
}

void WriteProfileSettings(const std::string& profile) {
  const std::filesystem::path file = std::filesystem::path(profile) / "user" / "registrymodifications.xcu";
  std::filesystem::create_directories(file.parent_path());
  std::ifstream present(file, std::ios::binary);
  const std::string before{std::istreambuf_iterator<char>(present), {}};
  const std::string after = WithSettings(before);
  if (after == before) return;
  const std::filesystem::path copy = file.string() + ".new";
  std::ofstream out(copy, std::ios::binary);
  out << after;
  out.close();
  if (!out) throw std::system_error(errno, std::generic_category(), copy);
  std::filesystem::rename(copy, file);
}

}  // namespace qb::office
