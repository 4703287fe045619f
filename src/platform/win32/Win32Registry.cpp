#include "platform/win32/Win32Registry.h"

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Text.h"

namespace qb {
namespace {

/// An open key; closed with the object.
class OpenKey {
 public:
  OpenKey() = default;
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;
  ~OpenKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  HKEY Get() const { return key_; }
  HKEY* Room() { return &key_; }

 private:
  HKEY key_ = nullptr;
};

struct Place {
  HKEY hive;
  std::wstring key;
};

HKEY SystemHive(Hive hive) {
  switch (hive) {
    case Hive::kClassesRoot:
      return HKEY_CLASSES_ROOT;
    case Hive::kCurrentUser:
      return HKEY_CURRENT_USER;
    case Hive::kLocalMachine:
      return HKEY_LOCAL_MACHINE;
  }
  return nullptr;
}

std::string_view HiveName(Hive hive) {
  switch (hive) {
    case Hive::kClassesRoot:
      return R"(\HKEY_CLASSES_ROOT\)";
    case Hive::kCurrentUser:
      return R"(\HKEY_CURRENT_USER\)";
    case Hive::kLocalMachine:
      return R"(\HKEY_LOCAL_MACHINE\)";
  }
  return {};
}

Place PlaceOf(const std::string& folder, Hive hive, std::string_view key) {
  if (folder.empty()) return {SystemHive(hive), Wide(key)};
  return {HKEY_CURRENT_USER, Wide(folder + std::string(HiveName(hive)) + std::string(key))};
}

bool IsText(DWORD type) {
  return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

/// The value's bytes; nothing if there is no such value.
std::optional<std::string> Bytes(HKEY key, const std::wstring& name, DWORD& type) {
  std::string bytes(512, '\0');
  while (true) {
    auto size = static_cast<DWORD>(bytes.size());
    const LSTATUS status =
        RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()), &size);
    if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) return std::nullopt;
    bytes.resize(size);  // the next call has the room that this one asked for
    if (status == ERROR_SUCCESS) return bytes;
  }
}

}  // namespace

std::optional<RegistryValue> Win32Registry::Query(Hive hive, std::string_view key,
                                                  std::string_view valueName) {
  const Place place = PlaceOf(folder_, hive, key);
  OpenKey open;
  if (RegOpenKeyExW(place.hive, place.key.c_str(), 0, KEY_QUERY_VALUE, open.Room()) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  DWORD type = REG_NONE;
  std::optional<std::string> bytes = Bytes(open.Get(), Wide(valueName), type);
  if (!bytes) return std::nullopt;
  RegistryValue value{type, std::move(*bytes)};
  if (IsText(type)) {
    const auto* const units = reinterpret_cast<const wchar_t*>(value.data.data());
    value.data = Utf8({units, value.data.size() / sizeof(wchar_t)});
  }
  return value;
}

long Win32Registry::SetText(Hive hive, std::string_view key, std::string_view valueName,
                            std::string_view text) {
  const Place place = PlaceOf(folder_, hive, key);
  OpenKey open;
  const LSTATUS created = RegCreateKeyW(place.hive, place.key.c_str(), open.Room());
  if (created != ERROR_SUCCESS) return created;
  const std::wstring wide = Wide(text);
  // The terminator is not counted; the system adds it by itself, since it stands there.
  return RegSetValueExW(open.Get(), Wide(valueName).c_str(), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(wide.c_str()),
                        static_cast<DWORD>(wide.size() * sizeof(wchar_t)));
}

}  // namespace qb
