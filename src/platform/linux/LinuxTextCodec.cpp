#include "platform/linux/LinuxTextCodec.h"

#include <cstdlib>
#include <string>

#include "platform/LanguageCodePages.h"
#include "platform/linux/IconvSource.h"
#include "runtime/Text.h"

namespace qb {
namespace {

/// As in "de_DE.UTF-8@euro".
std::string LocaleName() {
  for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return "C";
}

}  // namespace

std::unique_ptr<CodePageSource> LinuxTextCodec::Source(CodePage codePage) {
  return MakeIconvSource(codePage);
}

CodePage LinuxTextCodec::CodePageOfLocale() {
  const std::string name = LocaleName();
  const CodePage codePage = KnownCodePage(name.substr(0, name.find_first_of(".@")));
  return codePage == 0 ? kWestern : codePage;
}

CodePage LinuxTextCodec::SystemCodePage() {
  const std::string name = LocaleName();
  const std::size_t dot = name.find('.');
  if (dot == std::string::npos) return kUtf8;
  const std::string encoding = UpperCase(name.substr(dot + 1, name.find('@') - dot - 1));
  return encoding == "UTF-8" || encoding == "UTF8" ? kUtf8 : CodePageOfLocale();
}

}  // namespace qb
