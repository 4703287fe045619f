#include "workflow/TitleDialog.h"

#include <fmt/format.h>

#include "foundation/Product.h"
#include "platform/Platform.h"
#include "runtime/Text.h"
#include "ui/Toolkit.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

constexpr std::string_view kLineBreakers("\r\n\0", 3);
constexpr std::size_t kMostShown = 10;

/// Whether the code page gives the text back as it is.
bool Survives(std::string_view text, CodePage codePage) {
  TextCodec& codec = *ThePlatform().codec;
  return codec.CanEncode(text, codePage) && codec.Decode(codec.Encode(text, codePage), codePage) == text;
}

/// The characters that the code page cannot hold, each once, with its number, since not all of them can be
/// seen.
std::string UnheldCharacters(std::string_view title, CodePage codePage) {
  std::string shown;
  std::u32string seen;
  while (!title.empty()) {
    const char32_t code = TakeCharacter(title);
    std::string character;
    AppendCharacter(character, code);
    if (seen.find(code) != std::u32string::npos || Survives(character, codePage)) continue;
    seen.push_back(code);
    if (seen.size() > kMostShown) return shown + " ...";
    shown += fmt::format("{}{} (U+{:04X})", shown.empty() ? "" : "  ", character,
                         static_cast<std::uint32_t>(code));
  }
  return shown;
}

}  // namespace

std::string TitleObjection(const CLoioEntry& loio, std::string_view title) {
  if (loio.GetPhio(false) == nullptr)
    return "This document has no version in the target language that could take a title.";
  const std::string locked = ThePxfFile().WhyLocked(loio.LoioNo());
  if (!locked.empty()) return "The package file could not be changed: " + locked;
  if (title.find_first_of(kLineBreakers) != std::string_view::npos) {
    return "A title cannot hold a line break. Please write it in one line.";
  }
  const CodePage codePage = ThePlatform().profiles->CodePageOf(ThePxfFile().strFileName);
  if (Survives(title, codePage)) return {};
  const std::string unheld = UnheldCharacters(title, codePage);
  return fmt::format(
      "The package is written in code page {}, which cannot hold {}\r\n\r\nPlease write the title "
      "without {}.",
      codePage, unheld.empty() ? "this title." : "these characters:\r\n\r\n" + unheld,
      unheld.empty() ? "unusual characters" : "them");
}

void TitleOkPressed(frmTranslateTitle& form) {
  const std::string title(Trim(form.ctlTitleTrans.Text.Get()));
  const std::string objection = form.Objection ? form.Objection(title) : std::string();
  if (!objection.empty()) {
    MsgBox(objection, box::kExclamation);
    TheToolkit().SetFocus(form.ctlTitleTrans);
    return;
  }
  gTitleDialogResult = kTitleTaken;
  TheToolkit().Hide(form);
}

void TitleCancelPressed(frmTranslateTitle& form) {
  gTitleDialogResult = kTitleCancelled;
  TheToolkit().Hide(form);
}

bool TitleAskedToUnload(frmTranslateTitle& form) {
  TitleCancelPressed(form);
  return true;
}

}  // namespace qb
