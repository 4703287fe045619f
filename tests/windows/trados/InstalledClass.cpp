#include "windows/trados/InstalledClass.h"

#include <gtest/gtest.h>
#include <windows.h>
// Behind it, since it does not stand alone.
#include <objbase.h>

#include "windows/trados/StandInProcess.h"

namespace qb {
namespace {

/// An identifier as the registry spells it.
std::wstring NewIdentifier() {
  GUID identifier{};
  EXPECT_EQ(CoCreateGuid(&identifier), S_OK);
  std::wstring text(64, L'\0');
  text.resize(
      static_cast<std::size_t>(StringFromGUID2(identifier, text.data(), static_cast<int>(text.size()))) - 1);
  return text;
}

void SetClassesValue(const std::wstring& key, const std::wstring& text) {
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text.c_str(), bytes),
            ERROR_SUCCESS);
}

}  // namespace

InstalledClass::InstalledClass(const std::wstring& name, const std::wstring& program) : name_(name) {
  const std::wstring identifier = NewIdentifier();
  key_ = L"CLSID\\" + identifier;
  SetClassesValue(name_ + L"\\CLSID", identifier);
  SetProgram(StandInPath(program));
}

InstalledClass::~InstalledClass() {
  Remove();
}

void InstalledClass::SetProgram(const std::wstring& file) {
  SetClassesValue(key_ + L"\\LocalServer32", L'"' + file + L'"');
}

void InstalledClass::Remove() {
  RegDeleteTreeW(HKEY_CLASSES_ROOT, name_.c_str());
  RegDeleteTreeW(HKEY_CLASSES_ROOT, key_.c_str());
}

}  // namespace qb
