#include "platform/win32/Win32ApplicationWindows.h"

#include <array>

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Text.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::string_view kCloseKeys = "%{F4}";
constexpr UINT kPatience = 5000;      // milliseconds, for a window that does not answer
constexpr ULONGLONG kClosing = 3000;  // milliseconds, for a window to close
constexpr DWORD kLook = 20;           // milliseconds between two looks at it

HWND WindowOf(std::optional<std::string_view> windowClass, std::optional<std::string_view> title) {
  const std::wstring className = Wide(windowClass.value_or(""));
  const std::wstring text = Wide(title.value_or(""));
  return FindWindowW(windowClass ? className.c_str() : nullptr, title ? text.c_str() : nullptr);
}

INPUT Key(WORD code, bool up) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
  return input;
}

void PressAltF4() {
  std::array<INPUT, 4> keys{Key(VK_MENU, false), Key(VK_F4, false), Key(VK_F4, true), Key(VK_MENU, true)};
  SendInput(static_cast<UINT>(keys.size()), keys.data(), sizeof(INPUT));
}

/// Waits until the window has gone, or as long as one may take that asks its user first.
void WaitForEnd(HWND window) {
  const ULONGLONG start = GetTickCount64();
  while (IsWindow(window) != FALSE && GetTickCount64() - start < kClosing) Sleep(kLook);
}

}  // namespace

std::uintptr_t Win32ApplicationWindows::Find(std::optional<std::string_view> windowClass,
                                             std::optional<std::string_view> title) {
  return reinterpret_cast<std::uintptr_t>(WindowOf(windowClass, title));
}

std::int64_t Win32ApplicationWindows::SendCopyData(std::uintptr_t window, std::uintptr_t number,
                                                   std::optional<std::u16string_view> payload) {
  if (window == 0) return 0;
  COPYDATASTRUCT record{};
  record.dwData = number;
  if (payload) {
    record.cbData = static_cast<DWORD>(payload->size() * sizeof(char16_t));
    record.lpData = const_cast<char16_t*>(payload->data());  // the receiver gets a copy
  }
  // The viewer's own handle stands for the sender: stays so.
  DWORD_PTR reply = 0;
  SendMessageTimeoutW(reinterpret_cast<HWND>(window), WM_COPYDATA, window, reinterpret_cast<LPARAM>(&record),
                      SMTO_ABORTIFHUNG, kPatience, &reply);
  return static_cast<std::int64_t>(reply);
}

void Win32ApplicationWindows::SendKeys(std::string_view title, std::string_view keys) {
  if (keys != kCloseKeys) RaiseAbout(failure::kInvalidArgument, keys);
  HWND const window = WindowOf(std::nullopt, title);
  if (window == nullptr) RaiseAbout(failure::kInvalidArgument, title);
  SetForegroundWindow(window);
  if (IsWindowVisible(window) != FALSE && GetForegroundWindow() == window) {
    PressAltF4();
  } else {
    PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);  // what the keys mean to a window
  }
  WaitForEnd(window);
}

}  // namespace qb
