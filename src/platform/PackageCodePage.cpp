#include "platform/PackageCodePage.h"

#include <charconv>
#include <optional>
#include <string_view>

#include "platform/Platform.h"

namespace qb {
namespace {

/// 0 if there is no such setting or it is no number.
CodePage CodePageSetting(Registry& registry) {
  const std::optional<RegistryValue> value = registry.Query(Hive::kCurrentUser, kSettingsKey, "AnsiCodePage");
  CodePage codePage = 0;
  if (value) std::from_chars(value->data.data(), value->data.data() + value->data.size(), codePage);
  return codePage;
}

}  // namespace

CodePageChooser PackageCodePageChooser(Registry& registry, TextCodec& codec) {
  return [&registry, &codec](const ProfileImage& image) {
    const CodePage setting = CodePageSetting(registry);
    return setting != 0 ? setting
                        : codec.CodePageOfLanguage(image.Value("GLOBAL", "DSTLANGUAGE").value_or(""));
  };
}

}  // namespace qb
