#include "workflow/Settings.h"

#include <array>
#include <limits>

#include "foundation/OrbQBCommonFunctionsMod.h"
#include "foundation/Product.h"
#include "foundation/gRvdError.h"
#include "foundation/grvdRegistry.h"
#include "platform/Platform.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "ui/Forms.h"
#include "ui/frmAbout.h"
#include "ui/frmQBTranslator.h"
#include "workflow/RecentFiles.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "TranslateMod";

std::string ReadSetting(std::string_view name, std::string_view defaultValue = {}) {
  return GetRegistryString(Hive::kCurrentUser, kSettingsKey, name, defaultValue);
}

void WriteSetting(std::string_view name, std::string_view value) {
  SetRegistryString(Hive::kCurrentUser, kSettingsKey, name, value);
}

void WriteDefaults() {
  WriteSetting("SessionNumber", "1");
  WriteSetting("InterfaceLanguage", "en");
  WriteSetting("ViewDetailed", gViewDetailed ? "1" : "0");
  WriteSetting("UserID", "ORB AG");
  WriteSetting("HelpFile", R"(en\00005554.chm)");
  WriteSetting("WebBrowser", R"(c:\Program Files\Plus!\Microsoft Internet\Iexplore.exe)");
  WriteSetting("InstallationPath", ThePlatform().files->ProgramDirectory());
  WriteSetting("ProgramGroup", "ORB Quillbank");
  WriteSetting("TimerInterval", "5000");
  for (const std::string_view name : {"LastFile1", "LastFile2", "LastFile3", "LastFile4"})
    WriteSetting(name, "-");
  WriteSetting("TraceFile", "TraceFile");
  WriteSetting("Trace", "1");
}

/// A number that is none, or too large, reads as 0.
std::int32_t ReadNumber(std::string_view name) {
  std::int32_t number = 0;
  Attempt([&] { number = LenientNumber(ReadSetting(name)); });
  Err.Clear();
  return number;
}

std::string ReadRecentFile(std::string_view name) {
  const std::string path = ReadSetting(name);
  return path == "-" ? std::string() : path;
}

void ReadSettings() {
  if (ReadSetting("SessionNumber", "0") == "0") WriteDefaults();
  const std::int32_t session = ReadNumber("SessionNumber");
  gSessionNumber = session < std::numeric_limits<std::int32_t>::max() ? session + 1 : session;
  gInterfaceLanguage = ReadSetting("InterfaceLanguage");
  gViewDetailed = ReadSetting("ViewDetailed") == "1";
  gUserID = ReadSetting("UserID");
  gHelpFile = ReadSetting("HelpFile");
  gWebBrowser = GetRegistryString(Hive::kClassesRoot, R"(http\shell\open\command)", "", "");
  gInstallationPath = ReadSetting("InstallationPath");
  gProgramGroup = ReadSetting("ProgramGroup");
  gTimerInterval = ReadNumber("TimerInterval");
  gLastFile1 = ReadRecentFile("LastFile1");
  gLastFile2 = ReadRecentFile("LastFile2");
  gLastFile3 = ReadRecentFile("LastFile3");
  gLastFile4 = ReadRecentFile("LastFile4");
  gRecentCount = 0;
  for (const std::string& path : {gLastFile4, gLastFile3, gLastFile2, gLastFile1}) AddRecentFile(path, true);
  gTraceFile = ReadSetting("TraceFile");
  gTraceOn = ReadSetting("Trace") == "1";
}

void WriteSettings() {
  WriteSetting("SessionNumber", std::to_string(gSessionNumber));
  WriteSetting("InterfaceLanguage", gInterfaceLanguage);
  WriteSetting("ViewDetailed", gViewDetailed ? "1" : "0");
  WriteSetting("UserID", gUserID);
  WriteSetting("HelpFile", gHelpFile);
  WriteSetting("WebBrowser", gWebBrowser);
  WriteSetting("InstallationPath", gInstallationPath);
  WriteSetting("ProgramGroup", gProgramGroup);
  WriteSetting("TimerInterval", std::to_string(gTimerInterval));
  auto& form = Default<frmQBTranslator>();
  const std::array<std::string*, frmQBTranslator::kRecentFiles> lastFiles{&gLastFile1, &gLastFile2,
                                                                          &gLastFile3, &gLastFile4};
  for (int i = 1; i <= frmQBTranslator::kRecentFiles; ++i) {
    *lastFiles[static_cast<std::size_t>(i) - 1] = StripMenuAccess(form.mniFileRecent(i).Caption.Get());
  }
  for (int i = 1; i <= frmQBTranslator::kRecentFiles; ++i) {
    std::string& path = *lastFiles[static_cast<std::size_t>(i) - 1];
    if (path.empty()) path = "-";
    WriteSetting("LastFile" + std::to_string(i), path);
  }
  WriteSetting("TraceFile", gTraceFile);
  WriteSetting("Trace", gTraceOn ? "1" : "0");
}

/// Adds the texts and the error's parts as numbers, not as text: stays so, and fails for any text that is
/// none.
void RaiseUnwrittenSettings() {
  const PendingError error = Err;  // asking for a wording clears the pending one
  const std::string attempting = QBL_LText(
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTSETREGISTRYS002316.T.00078|An error occurred while attempting");
  const std::string writing = QBL_LText(
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTSETREGISTRYS002316.T.00079|to write settings to the Registry:");
  const std::int32_t sum = StrictNumber(attempting) + StrictNumber(writing) + StrictNumber(error.Description);
  throw RuntimeError(error.Number, std::string(kModule), std::to_string(sum));
}

}  // namespace

void QbtGetRegistrySettings() {
  if (Attempt(ReadSettings)) return;
  gRvdError(kModule, "QbtGetRegistrySettings");
}

void QbtSetRegistrySettings() {
  if (!Attempt(WriteSettings)) RaiseUnwrittenSettings();
}

void InitAllForms() {
  const bool localization = gPxfFile != nullptr && gPxfFile->IsLocalizationPackage();
  for (Form* form : TheForms().Loaded()) {
    localization ? form->QBL_InitLText_Localization() : form->QBL_InitLText();
  }
}

void ApplySettings(std::string_view language, std::string_view userID, std::int32_t timerInterval) {
  gInterfaceLanguage = LowerCase(language);
  gUserID = userID;
  gTimerInterval = timerInterval;
  const std::vector<std::string> pieces = Split(gHelpFile, "\\");
  // This is the application's help file, wherever help is asked for.
  gHelpFile = pieces.size() == 2 ? gInterfaceLanguage + "\\" + pieces[1] : "en";  // the bare code: stays so
  QBL_InitLanguage(gInstallationPath, "QuillbankTranslator", ProductVersion(), gInterfaceLanguage);
  InitAllForms();
  Default<frmAbout>().lblRelease.Caption = "Version " + ProductVersion();
}

void GetSettings(std::string& language, std::string& userID, std::int32_t& timerInterval) {
  language = gInterfaceLanguage;
  userID = gUserID;
  timerInterval = gTimerInterval;
}

void ToggleTrace() {
  gTraceOn = !gTraceOn;
  if (gTrace != nullptr) gTrace->Active = gTraceOn;
}

bool GetTraceFlag() {
  return gTraceOn;
}

}  // namespace qb
