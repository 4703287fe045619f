#include "support/WorkflowTest.h"

#include "editors/EditorQuestions.h"
#include "foundation/OrbQBCommonFunctionsMod.h"
#include "foundation/grvdRegistry.h"
#include "runtime/Text.h"

namespace qb {

WorkflowTest::WorkflowTest() {
  auto toolkit = std::make_unique<ScriptedToolkit>();
  toolkit_ = toolkit.get();
  toolkitBefore_ = InstallToolkit(std::move(toolkit));
  shell_ = Install<FakeShell>(ThePlatform().shell);
  automation_ = Install<FakeAutomation>(ThePlatform().automation);
  windows_ = Install<FakeWindows>(ThePlatform().windows);
  dde_ = Install<FakeDde>(ThePlatform().dde);
  clock_ = &UseFakeClock();
  gEditorQuestions.bringsUpTradosTools = true;
}

WorkflowTest::~WorkflowTest() {
  shell_->EndAllProcesses();
  ResetProgramState();
  InstallToolkit(std::move(toolkitBefore_));
}

void WorkflowTest::Start(std::string_view commandTail) {
  if (Setting("SessionNumber").empty()) {
    for (const auto& [name, value] :
         {std::pair{"SessionNumber", "41"}, std::pair{"InterfaceLanguage", "en"},
          std::pair{"TraceFile", R"(\trace.txt)"}, std::pair{"Trace", "1"},
          std::pair{"TimerInterval", "5000"}, std::pair{"HelpFile", R"(en\00005554.chm)"}}) {
      SetSetting(name, value);
    }
  }
  Main(commandTail);
}

void WorkflowTest::Tick() {
  const Timer& timer = Window().tmrTimer1;
  if (timer.Enabled && timer.Tick) timer.Tick();
}

std::string WorkflowTest::Setting(std::string_view name) {
  return GetRegistryString(Hive::kCurrentUser, kSettingsKey, name, {});
}

void WorkflowTest::SetSetting(std::string_view name, std::string_view value) {
  SetRegistryString(Hive::kCurrentUser, kSettingsKey, name, value);
}

std::string WorkflowTest::Entry(std::string_view path, std::string_view section, std::string_view key) {
  return GetIniEntry(path, section, key, {});
}

std::vector<std::string> WorkflowTest::TraceLines() const {
  constexpr std::size_t kPrefix = 29;  // date, time, blank, computer name
  std::vector<std::string> lines;
  for (const std::string& line : Split(Bytes(R"(\trace.txt)"), "\r\n")) {
    if (line.size() >= kPrefix) lines.push_back(line.substr(kPrefix));
  }
  return lines;
}

std::string SmallPackage(bool localization) {
  std::string text =
      "[GLOBAL]\r\nTITLE=Small package\r\nSRCLANGUAGE=DE\r\nDSTLANGUAGE=EN\r\nINFOBJS=2\r\n"
      "[TRANS]\r\nTRANSTYPE=GEN\r\n";
  if (localization) text += "QBT_WF=LOCAL\r\n";
  text +=
      "[1]\r\nLOIO=DOC1\r\nCLASS=DOCUMENT\r\nRVD_TECH_NAME=STYLES\r\nPROCESS=CSS\r\nPHIO_COUNT=2\r\n"
      "1PHIO=P1\r\n1CLASS=DOCUMENT\r\n1ROLE=DST_CURR\r\n1PATH=dst\r\n1STATE=UNCHANGED\r\n1DOCUMENT_FORMAT="
      "CSS\r\n"
      "1DESCRIPTION=Styles\r\n1FILE_COUNT=1\r\n1FILE_NAME1=styles.css\r\n1FORMAT1=PRIM\r\n1SHORT_NAME1="
      "styles.css\r\n"
      "2PHIO=P2\r\n2CLASS=DOCUMENT\r\n2ROLE=SRC_CURR\r\n2PATH=src\r\n2STATE=READONLY\r\n2DOCUMENT_FORMAT="
      "CSS\r\n"
      "2DESCRIPTION=Stile\r\n2FILE_COUNT=1\r\n2FILE_NAME1=styles.css\r\n2FORMAT1=PRIM\r\n2SHORT_NAME1=styles."
      "css\r\n"
      "[2]\r\nLOIO=DOC2\r\nCLASS=DOCUMENT\r\nRVD_TECH_NAME=SCRIPT\r\nPROCESS=JS\r\nPHIO_COUNT=2\r\n"
      "1PHIO=P3\r\n1CLASS=DOCUMENT\r\n1ROLE=DST_CURR\r\n1PATH=dst\r\n1STATE=UNCHANGED\r\n1DOCUMENT_FORMAT="
      "JS\r\n"
      "1PROPSECTION=ADD1\r\n1FILE_COUNT=2\r\n1FILE_NAME1=menu.js\r\n1FORMAT1=PRIM\r\n1SHORT_NAME1=menu.js\r\n"
      "1FILE_NAME2=menu.gif\r\n1FORMAT2=\r\n1SHORT_NAME2=menu.gif\r\n"
      "2PHIO=P4\r\n2CLASS=DOCUMENT\r\n2ROLE=SRC_CURR\r\n2PATH=src\r\n2STATE=READONLY\r\n2DOCUMENT_FORMAT="
      "JS\r\n"
      "2FILE_COUNT=1\r\n2FILE_NAME1=menu.js\r\n2FORMAT1=PRIM\r\n2SHORT_NAME1=menu.js\r\n"
      "[ADD1]\r\nCOUNT=1\r\n1NAME=DESCRIPTION\r\n1VALUE=Menu\r\n1INFO=\r\n";
  return text;
}

}  // namespace qb
