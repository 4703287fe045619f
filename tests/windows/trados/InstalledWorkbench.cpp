#include "windows/trados/InstalledWorkbench.h"

#include <gtest/gtest.h>
#include <windows.h>
// Behind it, since it does not stand alone.
#include <objbase.h>

#include "platform/Platform.h"
#include "windows/trados/StandInProcess.h"
#include "windows/trados/StandInWorkbench.h"

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

InstalledWorkbench::InstalledWorkbench() {
  const std::wstring identifier = NewIdentifier();
  classKey_ = L"CLSID\\" + identifier;
  SetClassesValue(std::wstring(kWorkbenchName) + L"\\CLSID", identifier);
  SetProgram(StandInPath(L"StandInWorkbench"));
}

InstalledWorkbench::~InstalledWorkbench() {
  Remove();
}

void InstalledWorkbench::SetProgram(const std::wstring& file) {
  SetClassesValue(classKey_ + L"\\LocalServer32", L'"' + file + L'"');
}

void InstalledWorkbench::Remove() {
  RegDeleteTreeW(HKEY_CLASSES_ROOT, kWorkbenchName);
  RegDeleteTreeW(HKEY_CLASSES_ROOT, classKey_.c_str());
}

std::string OpenedByTheWorkbench() {
  const auto running = ThePlatform().automation->ActiveObject("TW4Win.Application");
  return running == nullptr ? "none runs"
                            : running->ObjectProperty("TranslationMemory")->TextProperty("Opened");
}

}  // namespace qb
