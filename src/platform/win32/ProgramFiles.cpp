#include "platform/win32/ProgramFiles.h"

#include <algorithm>
#include <array>

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32Text.h"
#include "runtime/Text.h"

namespace qb {
namespace {

/// Programs, what installs them, and what leads to them.
constexpr std::array<std::string_view, 36> kPrograms{
    "APPINSTALLER", "APPLICATION", "APPREF-MS", "APPX",   "APPXBUNDLE", "CHM",  "COM", "CPL",
    "DIAGCAB",      "DLL",         "EXE",       "GADGET", "HLP",        "INF",  "INS", "ISP",
    "JAR",          "LIBRARY-MS",  "LNK",       "MSC",    "MSI",        "MSIX", "MSP", "MST",
    "MSU",          "OCX",         "PIF",       "RDP",    "SCF",        "SCR",  "SCT", "SETTINGCONTENT-MS",
    "THEME",        "THEMEPACK",   "URL",       "WEBSITE"};

/// Texts that their usual program carries out.
constexpr std::array<std::string_view, 24> kScripts{
    "BAT", "CMD", "HTA", "JS",  "JSE", "PS1", "PS1XML", "PS2", "PSC1", "PSC2", "PY",  "PYW",
    "PYZ", "REG", "SHB", "SHS", "VB",  "VBE", "VBS",    "WS",  "WSC",  "WSF",  "WSH", "XBAP"};

template <std::size_t Size>
bool Holds(const std::array<std::string_view, Size>& list, std::string_view extension) {
  return std::find(list.begin(), list.end(), extension) != list.end();
}

/// In upper case, without the dot.
std::string Extension(const std::wstring& native) {
  const std::size_t dot = native.find_last_of(L".\\");
  if (dot == std::wstring::npos || native[dot] != L'.') return {};
  return UpperCase(Utf8(std::wstring_view(native).substr(dot + 1)));
}

/// Whether the file begins as every program of this system does.
bool BeginsAsProgram(const std::wstring& native) {
  const SystemHandle file = OpenSharedFile(native, GENERIC_READ, OPEN_EXISTING);
  char mark[2] = {};
  DWORD count = 0;
  return file && ReadFile(file.Get(), mark, sizeof mark, &count, nullptr) != FALSE && count == sizeof mark &&
         mark[0] == 'M' && mark[1] == 'Z';
}

}  // namespace

bool WouldRun(const std::wstring& native, std::string_view verb) {
  const std::string extension = Extension(native);
  if (Holds(kPrograms, extension) || BeginsAsProgram(native)) return true;
  const bool edits = EqualIgnoringCase(verb, "Edit") || EqualIgnoringCase(verb, "Translate");
  return !edits && Holds(kScripts, extension);
}

}  // namespace qb
