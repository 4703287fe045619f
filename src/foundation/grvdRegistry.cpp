#include "foundation/grvdRegistry.h"

#include "platform/Platform.h"

namespace qb {
namespace {

constexpr std::size_t kBufferSize = 255;  // bytes of the code page, the terminator included
constexpr std::uint32_t kTextType = 1;

}  // namespace

std::string GetRegistryString(Hive hive, std::string_view key, std::string_view valueName,
                              std::string_view defaultValue) {
  const std::optional<RegistryValue> value = ThePlatform().registry->Query(hive, key, valueName);
  if (!value) return std::string(defaultValue);
  TextCodec& codec = *ThePlatform().codec;
  // The type is not looked at: whatever is stored is taken for bytes of the code page.
  const std::string bytes =
      value->type == kTextType ? codec.Encode(value->data, codec.SystemCodePage()) : value->data;
  if (bytes.size() > kBufferSize) return std::string(defaultValue);
  if (bytes.empty()) return {};
  if (value->type == kTextType) return value->data.substr(0, value->data.size() - 1);
  return codec.Decode(std::string_view(bytes).substr(0, bytes.size() - 1), codec.SystemCodePage());
}

long SetRegistryString(Hive hive, std::string_view key, std::string_view valueName, std::string_view value) {
  return ThePlatform().registry->SetText(hive, key, valueName, value);
}

}  // namespace qb
