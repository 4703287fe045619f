#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qb {

/// Wording of the interface language by lookup key in upper case; absent until the first load.
extern std::unique_ptr<std::unordered_map<std::string, std::string>> gLanguageTexts;

/// The language file that was tried last.
extern std::string gLanguageFile;

/// Code of the interface language in lower case ("de", "en", "ja").
extern std::string gInterfaceLanguage;

/// What fonts are set on: a form and its controls in their order of creation.
class FormFonts {
 public:
  virtual ~FormFonts() = default;
  virtual std::string FormName() const = 0;
  virtual std::size_t ControlCount() const = 0;
  virtual void SetOwnFont(std::string_view fontName, int characterSet) = 0;
  /// `index` counts from 0. A control without a font passes this over.
  virtual void SetControlFont(std::size_t index, std::string_view fontName, double points,
                              int characterSet) = 0;
};

/// Loads `<directory>\<language>\<baseName>.lan`, else `<directory>\lan\<baseName>.en`, in place of the table
/// before. `version` is not used. Nothing is reported: what cannot be read leaves the English wording.
void QBL_InitLanguage(std::string_view directory, std::string_view baseName, std::string_view version,
                      std::string_view language);

/// The wording of a text key `<lookup key>|<English text>` in the interface language.
std::string QBL_LText(std::string_view key);

/// Splits at the first `separator`; without one, `left` is all of `text` and `right` is empty.
void QBL_SplitAt(std::string_view text, std::string_view separator, std::string& left, std::string& right);

/// Joins two pieces of a path with exactly one `\` between them, unless one is empty.
std::string QBL_JoinPath(std::string_view left, std::string_view right);

/// Fills the first occurrence of each of `%1` to `%4`, in this order; `%4` takes `p3` and `p4` is never used.
std::string QBL_FormatText(std::string_view text, std::string_view p1, std::string_view p2 = {},
                           std::string_view p3 = {}, std::string_view p4 = {});

/// Sets the fonts of a form for the interface language.
void QBL_SetFormFont(FormFonts& form);
void QBL_ApplyFont(FormFonts& form, std::string_view fontName);

}  // namespace qb
