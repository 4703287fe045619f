#include <windows.h>
// The first of these needs the types of the one above.
#include <shellapi.h>

#include <filesystem>
#include <fstream>
#include <string>

// A small editor, for the tests: shows the verb it was started by and the name of one file in the title of
// its window. The key S puts a text behind the file's end, the key W closes the window and with it the
// program. Usage: small_editor.exe <verb> <file>

namespace {

std::filesystem::path document;

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_KEYDOWN && first == 'S') {
    std::ofstream(document, std::ios::binary | std::ios::app) << "/* translated */";
    SetWindowTextW(window, (L"Saved: " + document.filename().wstring()).c_str());
    return 0;
  }
  if (message == WM_KEYDOWN && first == 'W') {
    DestroyWindow(window);
    return 0;
  }
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, first, second);
}

}  // namespace

int main() {
  int count = 0;
  LPWSTR* const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  if (count < 3) return 2;
  const std::wstring verb = arguments[1];
  document = arguments[2];
  LocalFree(arguments);

  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.lpszClassName = L"SmallEditor";
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  RegisterClassW(&windowClass);
  const std::wstring title = verb + L": " + document.filename().wstring();
  const HWND window =
      CreateWindowW(windowClass.lpszClassName, title.c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                    CW_USEDEFAULT, 480, 240, nullptr, nullptr, nullptr, nullptr);
  if (window == nullptr) return 3;
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
