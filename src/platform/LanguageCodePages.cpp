#include "platform/LanguageCodePages.h"

#include <algorithm>
#include <array>
#include <string>

#include "runtime/Text.h"

namespace qb {
namespace {

struct LanguageRow {
  std::string_view language;
  CodePage codePage;
};

constexpr std::array kLanguages{
    LanguageRow{"AF", 1252}, LanguageRow{"AR", 1256}, LanguageRow{"AZ", 1254}, LanguageRow{"BE", 1251},
    LanguageRow{"BG", 1251}, LanguageRow{"BS", 1250}, LanguageRow{"CA", 1252}, LanguageRow{"CS", 1250},
    LanguageRow{"CZ", 1250}, LanguageRow{"DA", 1252}, LanguageRow{"DE", 1252}, LanguageRow{"EL", 1253},
    LanguageRow{"EN", 1252}, LanguageRow{"ES", 1252}, LanguageRow{"ET", 1257}, LanguageRow{"EU", 1252},
    LanguageRow{"FA", 1256}, LanguageRow{"FI", 1252}, LanguageRow{"FO", 1252}, LanguageRow{"FR", 1252},
    LanguageRow{"GA", 1252}, LanguageRow{"GL", 1252}, LanguageRow{"HE", 1255}, LanguageRow{"HR", 1250},
    LanguageRow{"HU", 1250}, LanguageRow{"ID", 1252}, LanguageRow{"IS", 1252}, LanguageRow{"IT", 1252},
    LanguageRow{"IW", 1255}, LanguageRow{"JA", 932},  LanguageRow{"KK", 1251}, LanguageRow{"KO", 949},
    LanguageRow{"KY", 1251}, LanguageRow{"LT", 1257}, LanguageRow{"LV", 1257}, LanguageRow{"MK", 1251},
    LanguageRow{"MN", 1251}, LanguageRow{"MS", 1252}, LanguageRow{"NB", 1252}, LanguageRow{"NL", 1252},
    LanguageRow{"NN", 1252}, LanguageRow{"NO", 1252}, LanguageRow{"PL", 1250}, LanguageRow{"PT", 1252},
    LanguageRow{"RO", 1250}, LanguageRow{"RU", 1251}, LanguageRow{"SH", 1250}, LanguageRow{"SK", 1250},
    LanguageRow{"SL", 1250}, LanguageRow{"SQ", 1250}, LanguageRow{"SR", 1251}, LanguageRow{"SV", 1252},
    LanguageRow{"SW", 1252}, LanguageRow{"TH", 874},  LanguageRow{"TR", 1254}, LanguageRow{"TT", 1251},
    LanguageRow{"UK", 1251}, LanguageRow{"UR", 1256}, LanguageRow{"VI", 1258}, LanguageRow{"ZF", 950},
    LanguageRow{"ZH", 936},
};

constexpr std::array kTraditionalChinese{std::string_view("ZH-TW"), std::string_view("ZH-HK"),
                                         std::string_view("ZH-MO"), std::string_view("ZH-HANT")};

}  // namespace

CodePage KnownCodePage(std::string_view language) {
  std::string upper = UpperCase(language);
  std::replace(upper.begin(), upper.end(), '_', '-');
  for (const std::string_view traditional : kTraditionalChinese) {
    if (upper.starts_with(traditional)) return 950;
  }
  const std::string_view word = std::string_view(upper).substr(0, upper.find('-'));
  const auto row = std::find_if(kLanguages.begin(), kLanguages.end(),
                                [word](const LanguageRow& known) { return known.language == word; });
  return row == kLanguages.end() ? 0 : row->codePage;
}

}  // namespace qb
