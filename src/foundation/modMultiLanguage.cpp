#include "foundation/modMultiLanguage.h"

#include "foundation/EventLoop.h"
#include "foundation/gRvdFile.h"
#include "foundation/grvdRegistry.h"
#include "platform/Platform.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {

std::unique_ptr<std::unordered_map<std::string, std::string>> gLanguageTexts;
std::string gLanguageFile;
std::string gInterfaceLanguage;

namespace {

constexpr int kOrdinaryFiles = 0;
constexpr double kFontPoints = 8.75;
constexpr int kDefaultCharacterSet = 1;
constexpr int kJapaneseCharacterSet = 128;

bool InterfaceIsJapanese() {
  return UpperCase(gInterfaceLanguage) == "JA";
}

CodePage CodePageOfLanguageFile(std::string_view language) {
  const std::int32_t setting =
      LenientNumber(GetRegistryString(Hive::kCurrentUser, kSettingsKey, "AnsiCodePage", {}));
  return setting > 0 ? static_cast<CodePage>(setting) : ThePlatform().codec->CodePageOfLanguage(language);
}

/// Takes the line at the front of `text`; it ends at CR LF, CR or LF.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find_first_of("\r\n");
  const std::string_view line = text.substr(0, end);
  std::size_t next = end == std::string_view::npos ? text.size() : end + 1;
  if (text.substr(line.size()).starts_with("\r\n")) ++next;
  text.remove_prefix(next);
  return line;
}

void AddEntry(std::string_view line) {
  const std::size_t first = line.find('\t');
  if (first == std::string_view::npos) return;
  const std::size_t second = line.find('\t', first + 1);
  if (second == std::string_view::npos) return;
  gLanguageTexts->try_emplace(UpperCase(line.substr(0, first)), line.substr(second + 1));
}

void ReadLanguageFile(std::string_view directory, std::string_view baseName, std::string_view language) {
  const std::string name = ChangeExtension(Trim(baseName), "lan");
  gLanguageFile = QBL_JoinPath(directory, '\\' + std::string(language) + '\\' + name);
  std::string_view fileLanguage = language;
  if (!FileExists(gLanguageFile, kOrdinaryFiles)) {
    fileLanguage = "en";
    // The fallback is a folder "lan" and the extension "en", and the name is not trimmed.
    gLanguageFile = QBL_JoinPath(directory, R"(lan\)" + std::string(baseName) + ".en");
  }
  if (!FileExists(gLanguageFile, kOrdinaryFiles)) return;
  const std::string bytes = ThePlatform().files->Read(gLanguageFile);
  const std::string text = ThePlatform().codec->Decode(bytes, CodePageOfLanguageFile(fileLanguage));
  for (std::string_view rest = text; !rest.empty();) AddEntry(TakeLine(rest));
}

}  // namespace

void QBL_InitLanguage(std::string_view directory, std::string_view baseName, std::string_view,
                      std::string_view language) {
  const std::string lowered = LowerCase(language);
  ThePlatform().mousePointer->Set(MousePointer::kHourglass);
  if (gProcessPendingEvents) gProcessPendingEvents();
  // Without a readable file the wording stays English, and nobody is told.
  Attempt([&] {
    gLanguageTexts = std::make_unique<std::unordered_map<std::string, std::string>>();
    ReadLanguageFile(directory, baseName, lowered);
  });
  Err.Clear();
  ThePlatform().mousePointer->Set(MousePointer::kDefault);
}

std::string QBL_LText(std::string_view key) {
  std::string lookupKey;
  std::string english;
  QBL_SplitAt(key, "|", lookupKey, english);
  if (gLanguageTexts != nullptr) {
    const auto found = gLanguageTexts->find(UpperCase(lookupKey));
    if (found != gLanguageTexts->end()) return found->second.empty() ? english : found->second;
  }
  Err.Clear();  // callers that report a failure take it before they ask for the wording
  return english;
}

void QBL_SplitAt(std::string_view text, std::string_view separator, std::string& left, std::string& right) {
  const std::string whole(text);  // `text` may be one of the two results
  const std::size_t position = whole.find(separator);
  right = position == std::string::npos ? std::string{} : whole.substr(position + separator.size());
  left = whole.substr(0, position);
}

std::string QBL_JoinPath(std::string_view left, std::string_view right) {
  std::string path(left);
  if (!left.empty() && !right.empty()) {
    const bool leftHas = left.back() == '\\';
    const bool rightHas = right.front() == '\\';
    if (leftHas && rightHas) path.pop_back();
    if (!leftHas && !rightHas) path.push_back('\\');
  }
  path += right;
  return path;
}

std::string QBL_FormatText(std::string_view text, std::string_view p1, std::string_view p2,
                           std::string_view p3, std::string_view) {
  std::string result = ReplaceFirst(text, "%1", p1);
  result = ReplaceFirst(result, "%2", p2);
  result = ReplaceFirst(result, "%3", p3);
  return ReplaceFirst(result, "%4", p3);  // takes the third value on purpose
}

void QBL_SetFormFont(FormFonts& form) {
  QBL_ApplyFont(form, InterfaceIsJapanese() ? "" : "MS Shell Dlg");
}

void QBL_ApplyFont(FormFonts& form, std::string_view fontName) {
  const int characterSet = InterfaceIsJapanese() ? kJapaneseCharacterSet : kDefaultCharacterSet;
  if (form.FormName() == "frmSplash") return;  // keeps the fonts of its design
  const std::size_t count = form.ControlCount();
  if (count < 2) return;  // a form with one control is left alone too
  Attempt([&] { form.SetOwnFont(fontName, characterSet); });
  for (std::size_t index = 0; index < count; ++index) {
    Attempt([&] { form.SetControlFont(index, fontName, kFontPoints, characterSet); });
  }
  Err.Clear();
}

}  // namespace qb
