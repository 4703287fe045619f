// A program that answers over DDE as MultiTerm does: application "MT4WIN", topic "mt_init". The argument says
// how: good, hang, die, refuse, garbage, huge. The item "stand_in_items" gives all items so far, each with a
// line end.

#include <windows.h>
// Behind it, since it does not stand alone.
#include <ddeml.h>

#include <cstring>
#include <string>

namespace {

DWORD instance = 0;
std::string mode;
std::string items;

/// Whether the one item that the modes are about was asked for.
bool IsTheItem(const std::string& item) {
  return item.rfind("mt_open#", 0) == 0;
}

HDDEDATA Answer(const std::string& text, HSZ item, bool terminated = true) {
  return DdeCreateDataHandle(instance, reinterpret_cast<BYTE*>(const_cast<char*>(text.c_str())),
                             static_cast<DWORD>(text.size() + (terminated ? 1 : 0)), 0, item, CF_TEXT, 0);
}

HDDEDATA OnRequest(HSZ itemHandle) {
  char text[512] = {};
  DdeQueryStringA(instance, itemHandle, text, sizeof text - 1, CP_WINANSI);
  const std::string item = text;
  if (item == "stand_in_items") return Answer(items, itemHandle);
  items += item + "\r\n";
  if (!IsTheItem(item)) return Answer("mt_ok", itemHandle);
  if (mode == "hang") Sleep(INFINITE);
  if (mode == "die") TerminateProcess(GetCurrentProcess(), 3);
  if (mode == "refuse") return nullptr;
  if (mode == "garbage") return Answer(std::string("\x81\xFF\x01\x7F", 4), itemHandle, false);
  if (mode == "huge") return Answer(std::string(10'000'000, 'x'), itemHandle);
  return Answer("mt_ok", itemHandle);
}

HDDEDATA CALLBACK OnDde(UINT type, UINT, HCONV, HSZ topic, HSZ item, HDDEDATA, ULONG_PTR, ULONG_PTR) {
  if (type == XTYP_REQUEST) return OnRequest(item);
  if (type != XTYP_CONNECT) return nullptr;
  char name[64] = {};
  DdeQueryStringA(instance, topic, name, sizeof name - 1, CP_WINANSI);
  return reinterpret_cast<HDDEDATA>(static_cast<INT_PTR>(std::strcmp(name, "mt_init") == 0));
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcA(window, message, first, second);
}

}  // namespace

int main(int, char** argv) {
  mode = argv[1];
  DdeInitializeA(&instance, OnDde, APPCLASS_STANDARD | CBF_FAIL_EXECUTES | CBF_FAIL_POKES, 0);
  DdeNameService(instance, DdeCreateStringHandleA(instance, "MT4WIN", CP_WINANSI), nullptr, DNS_REGISTER);
  WNDCLASSA windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.lpszClassName = "MT4WIN";
  RegisterClassA(&windowClass);
  // Hidden from the start, where the test says so: the program hides the window of the real one as well.
  const DWORD style = mode == "hidden" ? WS_OVERLAPPEDWINDOW : WS_OVERLAPPEDWINDOW | WS_VISIBLE;
  CreateWindowA("MT4WIN", "TRADOS MultiTerm", style, 10, 10, 200, 100, nullptr, nullptr, nullptr, nullptr);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  DdeUninitialize(instance);
  return 0;
}
