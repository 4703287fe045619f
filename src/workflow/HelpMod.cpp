#include "workflow/HelpMod.h"

#include <string>

#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"
#include "workflow/TranslateMod.h"
#include "workflow/TwoWordings.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "HelpMod";
constexpr int kOrdinaryFiles = 0;
constexpr std::size_t kExtensionLength = 4;
constexpr int kShowInterval = 3000;  // milliseconds

/// The end of a command of this module: on a pending failure reports `text`, with `%1` number and `%2`
/// description, and clears it.
void ReportHelpCommand(std::string_view procedure, std::string_view text) {
  const PendingError error = Err;  // asking for a wording clears the pending one
  if (error.Number == 0) return;
  const std::string report = QBL_FormatText(QBL_LText(text), std::to_string(error.Number), error.Description);
  gMessageHandler->Message(report, 2, true, false);
  Trace(3, kModule, procedure, "{}", report);
  Err.Clear();
}

void ShowHelpFile() {
  SetStatusText(QBL_LText(
      "QB.QBTRANSLAT.HELPMOD.000.QBTONLINEHELP.T.00001|Get online help for ORB Quillbank Translator"));
  std::string path = JoinFile(".", gHelpFile);
  if (!FileExists(path, kOrdinaryFiles)) path = JoinFile(ThePlatform().files->ProgramDirectory(), gHelpFile);
  if (!FileExists(path, kOrdinaryFiles)) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.HELPMOD.000.QBTONLINEHELP.T.00003|Could not find online help file: '") +
           gHelpFile + "'");
    return;
  }
  if (ThePlatform().shell->Start("hh.exe " + path) == 0) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.HELPMOD.000.QBTONLINEHELP.T.00002|Could not launch Microsoft HTMLHelp"));
  }
}

/// The program of the browser's command line, without its arguments and quotes.
std::string BrowserProgram() {
  const std::string extension = ExtensionOf(gWebBrowser);
  if (CharacterCount(extension) <= kExtensionLength) return gWebBrowser;
  std::string path = ChangeExtension(gWebBrowser, FirstCharacters(extension, kExtensionLength));
  ReplaceAll(path, "\"", "");
  return path;
}

void ShowHomePage() {
  SetStatusText(
      QBL_LText("QB.QBTRANSLAT.HELPMOD.000.QBTORBONTHEWORL002279.T.00009|Visit the ORB World Wide Web site"));
  FileExists(BrowserProgram(),
             kOrdinaryFiles);  // whatever it answers, the whole command is started: stays so
  if (ThePlatform().shell->Start(gWebBrowser + " " + std::string(kMakerHomePage)) == 0) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.HELPMOD.000.QBTORBONTHEWORL002279.T.00010|Could not launch Web browser"));
  }
}

}  // namespace

void SetStatusText(std::string_view text) {
  Default<frmQBTranslator>().sbcStatusBar.SimpleText = std::string(text);
}

void QbtSetViewDetailed(bool detailed) {
  gViewDetailed = detailed;
  auto& form = Default<frmQBTranslator>();
  form.mniDetailedView.Checked = detailed;
  form.mniShortView.Checked = !detailed;
  if (detailed) {
    form.lvInfoObjectList.Visible = true;
    form.TransPackTree.Visible = false;
  } else {
    form.lvInfoObjectList.Visible = false;
    form.TransPackTree.Visible = true;
  }
}

void QbtOnlineHelp() {
  Attempt(ShowHelpFile);
  ReportHelpCommand(
      "QbtOnlineHelp",
      "QB.QBTRANSLAT.HELPMOD.000.QBTONLINEHELP.T.00004|An error has occurred attempting to launch "
      "online help: #%1: %2");
}

void QbtOrbOnTheWorldWideWeb() {
  Attempt(ShowHomePage);
  ReportHelpCommand(
      "QbtOrbOnTheWorldWideWeb",
      "QB.QBTRANSLAT.HELPMOD.000.QBTORBONTHEWORL002279.T.00011|An error has occurred attempting "
      "to launch Web browser: #%1: %2");
}

void QbtShow() {
  Attempt([] {
    const std::string text = QBL_LText("QB.QBTRANSLAT.HELPMOD.000.QBTSHOW.T.00012|ORB Quillbank Translator");
    Timer& timer = Default<frmQBTranslator>().tmrTimer2;  // has no handler: nothing comes of its ticks
    timer.Enabled = true;
    const std::size_t length = CharacterCount(text);
    for (std::size_t n = 1; n <= length; ++n) SetStatusText(FirstCharacters(text, n));
    timer.Interval = kShowInterval;
    SetStatusText(QBL_LText("QB.QBTRANSLAT.HELPMOD.000.QBTSHOW.T.00013|A product by ORB AG"));
    timer.Enabled = false;
  });
  Err.Clear();
}

void QbtTechnicalSupport() {
  gMessageHandler->Message(
      QBL_LText(
          "QB.QBTRANSLAT.HELPMOD.000.QBTTECHNICALSUP001982.T.00014|Online technical support connection is "
          "not implemented yet"),
      2, true, false);
}

void QbtCheckIn() {
  const TwoWordings advice{
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTCHECKIN.T.00090|Please use ORB GUI to check in completed "
      "translation "
      "packages.",
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTCHECKIN.T.00120|Please use ORB GUI to check in completed "
      "localization "
      "packages."};
  gMessageHandler->Message(
      QBL_LText(
          "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTCHECKIN.T.00089|Direct checkin to Quillbank repository not "
          "implemented yet.") +
          "\r\n" + advice.Text(),
      1, false, false);
}

void QbtPrint() {
}

std::string GetStateText(const std::shared_ptr<CState>& state) {
  return state == nullptr ? std::string() : state->ExternalizeState();
}

}  // namespace qb
