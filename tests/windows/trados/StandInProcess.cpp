#include "windows/trados/StandInProcess.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/Platform.h"

namespace qb {
namespace {

constexpr ULONGLONG kPatience = 20000;  // milliseconds, for what takes a fraction of it

void LetMessagesRun() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
  Sleep(10);
}

}  // namespace

bool Eventually(const std::function<bool()>& happened) {
  const ULONGLONG start = GetTickCount64();
  while (!happened()) {
    if (GetTickCount64() - start > kPatience) return false;
    LetMessagesRun();
  }
  return true;
}

bool HasWindow(const wchar_t* windowClass, const wchar_t* title) {
  return FindWindowW(windowClass, title) != nullptr;
}

std::wstring StandInPath(const std::wstring& program) {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
  return path.substr(0, path.rfind(L'\\') + 1) + program + L".exe";
}

StandInProcess::StandInProcess(const std::wstring& program, const std::wstring& arguments) {
  std::wstring command = L'"' + StandInPath(program) + L"\" " + arguments;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                     &started) == FALSE) {
    ADD_FAILURE() << "A stand-in could not be started: " << GetLastError();
    return;
  }
  CloseHandle(started.hThread);
  process_ = started.hProcess;
}

StandInProcess::~StandInProcess() {
  Kill();
  if (process_ != nullptr) CloseHandle(process_);
}

bool StandInProcess::Runs() {
  return process_ != nullptr && WaitForSingleObject(process_, 0) == WAIT_TIMEOUT;
}

bool StandInProcess::Ends() {
  return Eventually([this] { return !Runs(); });
}

void StandInProcess::Kill() {
  if (!Runs()) return;
  TerminateProcess(process_, 1);
  WaitForSingleObject(process_, INFINITE);
}

std::string OpenedByTheWorkbench() {
  const auto running = ThePlatform().automation->ActiveObject("TW4Win.Application");
  return running == nullptr ? "none runs"
                            : running->ObjectProperty("TranslationMemory")->TextProperty("Opened");
}

}  // namespace qb
