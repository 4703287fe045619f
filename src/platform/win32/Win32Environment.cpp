#include "platform/win32/Win32Environment.h"

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Text.h"

namespace qb {

std::string Win32Environment::Variable(std::string_view name) {
  const std::wstring wide = Wide(name);
  std::wstring value(GetEnvironmentVariableW(wide.c_str(), nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(wide.c_str(), value.data(), static_cast<DWORD>(value.size())));
  return Utf8(value);
}

void Win32Debugger::Stop() {
  if (IsDebuggerPresent() != FALSE) DebugBreak();
}

}  // namespace qb
