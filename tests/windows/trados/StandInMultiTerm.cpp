// A program that answers over DDE as MultiTerm does: application "MT4WIN", topic "mt_init". It speaks in the
// messages of DDE themselves, without the system's library, so that each answer is one message and nothing
// follows it. The first argument says how it behaves: good; hidden; frozen, which answers no message at all;
// and hang, die, refuse, garbage, large, huge when an item comes that begins as the second argument does, or
// without one when it is to open a file. The item "stand_in_items" gives all items so far, each with a line
// end.

#include <windows.h>
// Behind it, since it does not stand alone.
#include <dde.h>

#include <cstring>
#include <string>

#include "windows/trados/StandInEnd.h"

namespace {

std::string mode;
std::string theItem = "mt_open#";
std::string items;

ATOM AtomOf(const char* name) {
  return GlobalAddAtomA(name);
}

std::string NameOf(ATOM atom) {
  char text[256] = {};
  GlobalGetAtomNameA(atom, text, sizeof text);
  return text;
}

/// Whether a caller's name, 0 for any, is this one.
bool Means(ATOM atom, const char* name) {
  return atom == 0 || lstrcmpiA(NameOf(atom).c_str(), name) == 0;
}

/// Accepts a conversation about the one topic.
void OnInitiate(HWND window, HWND client, ATOM application, ATOM topic) {
  if (!Means(application, "MT4WIN") || !Means(topic, "mt_init")) return;
  SendMessageA(client, WM_DDE_ACK, reinterpret_cast<WPARAM>(window),
               MAKELPARAM(AtomOf("MT4WIN"), AtomOf("mt_init")));
}

void Refuse(HWND window, HWND client, ATOM item) {
  PostMessageA(client, WM_DDE_ACK, reinterpret_cast<WPARAM>(window), PackDDElParam(WM_DDE_ACK, 0, item));
}

void Answer(HWND window, HWND client, ATOM item, const std::string& bytes) {
  HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, offsetof(DDEDATA, Value) + bytes.size());
  auto* const data = static_cast<DDEDATA*>(GlobalLock(memory));
  data->fResponse = 1;
  data->fRelease = 1;  // the caller lets go of the memory
  data->cfFormat = CF_TEXT;
  std::memcpy(data->Value, bytes.data(), bytes.size());
  GlobalUnlock(memory);
  const LPARAM packed = PackDDElParam(WM_DDE_DATA, reinterpret_cast<UINT_PTR>(memory), item);
  if (PostMessageA(client, WM_DDE_DATA, reinterpret_cast<WPARAM>(window), packed) == FALSE)
    GlobalFree(memory);
}

void AnswerText(HWND window, HWND client, ATOM item, const std::string& text) {
  Answer(window, client, item, text + '\0');
}

void OnRequest(HWND window, HWND client, ATOM itemAtom) {
  const std::string item = NameOf(itemAtom);
  if (item == "stand_in_items") return AnswerText(window, client, itemAtom, items);
  items += item + "\r\n";
  if (item.rfind(theItem, 0) != 0) return AnswerText(window, client, itemAtom, "mt_ok");
  if (mode == "hang") Sleep(INFINITE);
  if (mode == "die") TerminateProcess(GetCurrentProcess(), 3);
  if (mode == "refuse") return Refuse(window, client, itemAtom);
  if (mode == "garbage") return Answer(window, client, itemAtom, "\x81\xFF\x01\x7F");
  if (mode == "large") return AnswerText(window, client, itemAtom, std::string(1'000'000, 'x'));
  if (mode == "huge") return AnswerText(window, client, itemAtom, std::string(10'000'000, 'x'));
  AnswerText(window, client, itemAtom, "mt_ok");
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  HWND const client = reinterpret_cast<HWND>(first);
  switch (message) {
    case WM_DDE_INITIATE:
      OnInitiate(window, client, LOWORD(second), HIWORD(second));
      return 0;
    case WM_DDE_REQUEST:
      OnRequest(window, client, HIWORD(second));
      return 0;
    case WM_DDE_TERMINATE:
      PostMessageA(client, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(window), 0);
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcA(window, message, first, second);
  }
}

}  // namespace

int main(int argc, char** argv) {
  EndAfterAWhile();
  mode = argc > 1 ? argv[1] : "good";
  if (argc > 2) theItem = argv[2];
  WNDCLASSA windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.lpszClassName = "MT4WIN";
  RegisterClassA(&windowClass);
  // Hidden from the start, where the test says so: the program hides the window of the real one as well.
  const DWORD style = mode == "hidden" ? WS_OVERLAPPEDWINDOW : WS_OVERLAPPEDWINDOW | WS_VISIBLE;
  CreateWindowA("MT4WIN", "TRADOS MultiTerm", style, 10, 10, 200, 100, nullptr, nullptr, nullptr, nullptr);
  if (mode == "frozen") Sleep(INFINITE);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return 0;
}
