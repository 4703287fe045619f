#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "platform/linux/LinuxTextCodec.h"

namespace qb {
namespace {

/// Sets the variables of the locale for one test.
class Locale {
 public:
  explicit Locale(const char* name) {
    for (std::size_t i = 0; i < std::size(kVariables); ++i) {
      const char* const value = std::getenv(kVariables[i]);
      if (value != nullptr) before_[i] = value;
      unsetenv(kVariables[i]);
    }
    setenv("LANG", name, 1);
  }
  Locale(const Locale&) = delete;
  Locale& operator=(const Locale&) = delete;
  ~Locale() {
    for (std::size_t i = 0; i < std::size(kVariables); ++i) {
      unsetenv(kVariables[i]);
      if (before_[i]) setenv(kVariables[i], before_[i]->c_str(), 1);
    }
  }

 private:
  static constexpr const char* kVariables[] = {"LC_ALL", "LC_CTYPE", "LANG"};
  std::optional<std::string> before_[3];
};

TEST(LinuxTextCodec, CodePageOfLanguage_UnknownOrEmpty_IsThatOfTheLocale) {
  LinuxTextCodec codec;
  {
    const Locale locale("ru_RU.UTF-8");
    EXPECT_EQ(codec.CodePageOfLanguage(""), 1251U);
    EXPECT_EQ(codec.CodePageOfLanguage("XX"), 1251U);
    EXPECT_EQ(codec.CodePageOfLanguage("DE"), 1252U);
  }
  {
    const Locale locale("C");
    EXPECT_EQ(codec.CodePageOfLanguage(""), 1252U);
    EXPECT_EQ(codec.CodePageOfLanguage("??"), 1252U);
  }
  const Locale locale("hi_IN.UTF-8");
  EXPECT_EQ(codec.CodePageOfLanguage(""), 1252U) << "no ANSI code page is made for it";
}

TEST(LinuxTextCodec, SystemCodePage_IsUtf8UnlessTheLocaleSaysOtherwise) {
  struct Row {
    const char* locale;
    CodePage codePage;
  };
  LinuxTextCodec codec;
  for (const Row& row :
       {Row{"de_DE.UTF-8", kUtf8}, Row{"C.utf8", kUtf8}, Row{"C", kUtf8}, Row{"", kUtf8},
        Row{"de_DE.ISO-8859-15@euro", 1252}, Row{"ru_RU.KOI8-R", 1251}, Row{"ja_JP.eucJP", 932}}) {
    const Locale locale(row.locale);
    EXPECT_EQ(codec.SystemCodePage(), row.codePage) << row.locale;
  }
}

}  // namespace
}  // namespace qb
