#include "workflow/AboutDialog.h"

#include <fmt/format.h>

#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "foundation/modMultiLanguage.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "ui/Toolkit.h"
#include "workflow/HelpMod.h"
#include "workflow/ModalForm.h"

namespace qb {
namespace {

constexpr std::size_t kBufferSize = 1024;
constexpr std::uint32_t kDoubleWord = 4;
constexpr int kOrdinaryFiles = 0;

/// Empty if the registry names no tool.
std::string SystemInformationTool() {
  std::string path;
  if (GetKeyValue(Hive::kLocalMachine, R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)", "PATH", path))
    return path;
  if (!GetKeyValue(Hive::kLocalMachine, R"(SOFTWARE\Microsoft\Shared Tools Location)", "MSINFO", path))
    return {};
  path += R"(\MSINFO32.EXE)";
  return FileExists(path, kOrdinaryFiles) ? path : std::string();
}

}  // namespace

void ShowAbout() {
  Attempt(ShowNewModal<frmAbout>);
  Err.Clear();
}

bool GetKeyValue(Hive hive, std::string_view key, std::string_view valueName, std::string& value) {
  value.clear();
  const std::optional<RegistryValue> stored = ThePlatform().registry->Query(hive, key, valueName);
  if (!stored || stored->data.size() > kBufferSize) return false;
  std::string_view data = stored->data;
  if (data.ends_with('\0')) data.remove_suffix(1);
  if (stored->type != kDoubleWord) {
    value = data;
    return true;
  }
  value = "&h";
  for (std::size_t i = data.size(); i > 0; --i)
    value += fmt::format("{:02X}", static_cast<unsigned char>(data[i - 1]));
  return true;
}

void StartSysInfo() {
  const std::string tool = SystemInformationTool();
  std::int32_t process = 0;
  const bool started =
      !tool.empty() && Attempt([&] { process = ThePlatform().shell->Start(tool); }) && process != 0;
  Err.Clear();
  if (started) return;
  MsgBox(QBL_LText(
      "QB.QBTRANSLAT.FRMABOUT.000.STARTSYSINFO.T.00011|System Information Is Unavailable At This Time"));
}

void AboutConfirmed(frmAbout& form) {
  TheToolkit().Unload(form, Form::kUnloadByCode);
}

void AboutLogoDropped(int effect) {
  if (effect == Image::kDropNone || effect == (Image::kDropCopy | Image::kDropMove)) QbtShow();
}

}  // namespace qb
