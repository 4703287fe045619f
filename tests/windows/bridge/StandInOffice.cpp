// The stand-in of the Document Bridge as a library that needs no test program, for the program itself. Each
// document that is open has a small window. The key S saves the document, with another title and one link, W
// closes it; what has become of the document stands in the title of the window.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

#include "editors/EditorQuestions.h"
#include "platform/win32/Win32Text.h"
#include "support/ScriptedBridge.h"
#include "windows/bridge/StandInClass.h"
#include "windows/bridge/StandInObject.h"

extern "C" HRESULT StandInClass(REFCLSID theClass, REFIID identifier, void** object);

namespace {

using qb::theStandIn;

constexpr const wchar_t* kWindowClass = L"StandInOffice";
constexpr UINT kLookAround = 50;  // milliseconds

std::shared_ptr<qb::ScriptedBridge> office;
std::map<std::string, HWND> windows;  // by the path of the document

/// Folder of the role, folder and name of the document.
std::wstring NameOf(const std::string& path) {
  const std::filesystem::path file = qb::Wide(path);
  const std::filesystem::path folder = file.parent_path();
  return (folder.parent_path().filename() / folder.filename() / file.filename()).generic_wstring();
}

void Tell(HWND window, const std::wstring& what, const std::string& path) {
  SetWindowTextW(window, (what + L": " + NameOf(path)).c_str());
}

void Save(HWND window, const std::string& path) {
  std::ofstream(std::filesystem::path(qb::Wide(path)), std::ios::binary | std::ios::app) << "translated";
  office->Describe(path).properties["Title"] = std::string("Commissioning of the AQ 40");
  office->Describe(path).links = {{"https://www.example.com/aq40"}};
  office->UserSaves(path);
  Tell(window, theStandIn.strays.empty() ? L"Saved" : L"A member at no used position was called", path);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  const auto found = std::find_if(windows.begin(), windows.end(),
                                  [window](const auto& entry) { return entry.second == window; });
  if (message != WM_KEYDOWN || found == windows.end()) return DefWindowProcW(window, message, first, second);
  const std::string path = found->first;
  try {
    if (first == 'S') Save(window, path);
    if (first == 'W') office->UserCloses(path);
  } catch (const std::exception& failure) {
    Tell(window, qb::Wide(failure.what()), path);
  }
  return 0;
}

void Show(const std::string& path) {
  const HWND window = CreateWindowW(kWindowClass, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                                    CW_USEDEFAULT, 480, 240, nullptr, nullptr, nullptr, nullptr);
  windows[path] = window;
  Tell(window, L"Office", path);
}

/// Gives each document that was opened its window, and takes it from those that were closed.
void CALLBACK LookAround(HWND, UINT, UINT_PTR, DWORD) {
  for (std::size_t i = 0; i < office->calls.size(); ++i) {
    const std::string& call = office->calls[i];
    const std::size_t begin = call.find(" Open(");
    if (begin == std::string::npos) continue;
    const std::string path = call.substr(begin + 6, call.rfind(", ") - begin - 6);
    if (office->Shows(path) && !windows.contains(path)) Show(path);
  }
  for (auto entry = windows.begin(); entry != windows.end();) {
    const auto [path, window] = *entry;
    entry = office->Shows(path) ? std::next(entry) : windows.erase(entry);
    if (!office->Shows(path)) DestroyWindow(window);
  }
}

void StartOffice() {
  office = qb::ScriptedBridge::Install();
  for (const char* capability : {" 9", " 25", " 28"})
    office->capabilities["application/msword" + std::string(capability)] = 1;
  theStandIn.newOffice = qb::gEditorQuestions.newDocumentBridge;
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.lpszClassName = kWindowClass;
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  RegisterClassW(&windowClass);
  SetTimer(nullptr, 0, kLookAround, LookAround);
}

}  // namespace

extern "C" __declspec(dllexport) HRESULT STDMETHODCALLTYPE
    DllGetClassObject(REFCLSID theClass, REFIID identifier, void** object) {
  if (office == nullptr) StartOffice();
  *object = nullptr;
  return StandInClass(theClass, identifier, object);
}

extern "C" __declspec(dllexport) HRESULT STDMETHODCALLTYPE DllCanUnloadNow() {
  return S_FALSE;
}
