// A program with the window that trace records are sent to. Each record becomes one line of the file that the
// argument names, in UTF-8: number, whether the sender names this very window, bytes, and the fields with "|"
// behind each. A level request is answered with 0x70002: only its lower half is a level.

#include <windows.h>

#include <cstdio>
#include <string>

#include "windows/trados/StandInEnd.h"

namespace {

std::FILE* lines = nullptr;

void Write(HWND window, WPARAM sender, const COPYDATASTRUCT& record) {
  std::wstring text(static_cast<const wchar_t*>(record.lpData), record.cbData / sizeof(wchar_t));
  for (wchar_t& unit : text) {
    if (unit == L'\0') unit = L'|';
  }
  std::string utf8(text.size() * 3, '\0');
  utf8.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(),
                                                           static_cast<int>(text.size()), utf8.data(),
                                                           static_cast<int>(utf8.size()), nullptr, nullptr)));
  std::fprintf(lines, "%d %s %lu %s\n", static_cast<int>(record.dwData),
               reinterpret_cast<HWND>(sender) == window ? "own" : "other", record.cbData, utf8.c_str());
  std::fflush(lines);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_COPYDATA) {
    const auto& record = *reinterpret_cast<const COPYDATASTRUCT*>(second);
    Write(window, first, record);
    return record.dwData == 1 ? 0x70002 : 1;
  }
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, first, second);
}

}  // namespace

int main(int, char** argv) {
  EndAfterAWhile();
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.lpszClassName = L"StandInTraceViewer";
  RegisterClassW(&windowClass);
  CreateWindowW(L"StandInTraceViewer", L"ORB Trace Log Viewer", WS_OVERLAPPEDWINDOW, 10, 10, 200, 100,
                nullptr, nullptr, nullptr, nullptr);
  // Behind the window: whoever sees the file finds the viewer. Records wait for the loop.
  lines = std::fopen(argv[1], "wb");
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return std::fclose(lines);
}
