#include "platform/win32/Win32Shell.h"

#include "platform/win32/ProgramFiles.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32Text.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

bool IsFullPath(std::string_view file) {
  return file.starts_with('\\') || file.starts_with('/') || (file.size() > 1 && file[1] == ':');
}

/// Windows hands out handles whose upper half means nothing, so that they fit into this.
ProcessHandle NumberOf(void* handle) {
  return static_cast<ProcessHandle>(reinterpret_cast<INT_PTR>(handle));
}

std::wstring SystemFolder(UINT(WINAPI* folder)(LPWSTR, UINT)) {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(folder(path.data(), MAX_PATH));
  return path;
}

/// Where the program stands that a command line names without a folder: in the system's folders or in those
/// of the variable PATH. Never in the current folder, which may be a package's and come from a stranger.
/// Empty for a command line that names a folder. Raises 53 if there is none.
std::wstring ProgramOfName(const std::wstring& command) {
  const bool quoted = command.starts_with(L'"');
  const std::size_t start = quoted ? 1 : 0;
  const std::wstring name = command.substr(start, command.find(quoted ? L'"' : L' ', start) - start);
  if (name.find_first_of(L"\\/:") != std::wstring::npos) return {};
  const DWORD length = GetEnvironmentVariableW(L"PATH", nullptr, 0);
  std::wstring folders(length, L'\0');
  folders.resize(GetEnvironmentVariableW(L"PATH", folders.data(), length));
  folders = SystemFolder(GetSystemDirectoryW) + L';' + SystemFolder(GetWindowsDirectoryW) + L';' + folders;
  std::wstring program(MAX_PATH, L'\0');
  const DWORD found = SearchPathW(folders.c_str(), name.c_str(), L".exe", MAX_PATH, program.data(), nullptr);
  if (found == 0 || found >= MAX_PATH) RaiseAbout(failure::kFileNotFound, Utf8(name));
  program.resize(found);
  return program;
}

bool IsMissing(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
         error == ERROR_DIRECTORY;
}

}  // namespace

/// The native file of a request; empty if there is none.
std::wstring Win32Shell::FileOf(const ShellRequest& request) {
  std::string path = request.file;
  if (!IsFullPath(path) && !request.directory.empty()) {
    path.insert(0, request.directory + (request.directory.ends_with('\\') ? "" : "\\"));
  }
  const std::optional<std::wstring> native = paths_.Native(path);
  if (!native || AttributesOf(*native) == 0 || IsDirectory(*native)) return {};
  return *native;
}

bool Win32Shell::Execute(const ShellRequest& request, ProcessHandle& process) {
  process = 0;
  const std::wstring native = FileOf(request);
  if (native.empty() || request.verb.empty() || WouldRun(native, request.verb)) return false;
  const std::wstring file = ForOthers(native);
  const std::wstring verb = Wide(request.verb);
  std::wstring parameters = Wide(request.parameters);
  // The one parameter that is ever given is a path in quotes.
  if (paths_.HasRoot() && parameters.starts_with(L"\"\\") && parameters.ends_with(L'"')) {
    const std::string path = request.parameters.substr(1, request.parameters.size() - 2);
    parameters = L'"' + ForOthers(paths_.Native(path).value_or(Wide(path))) + L'"';
  }
  const std::wstring directory = request.directory.empty()
                                     ? std::wstring{}
                                     : ForOthers(paths_.Native(request.directory).value_or(std::wstring{}));
  SHELLEXECUTEINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_NO_UI;
  info.nShow = SW_SHOWDEFAULT;
  info.lpVerb = verb.c_str();
  info.lpFile = file.c_str();
  info.lpParameters = TextOrNone(parameters);
  info.lpDirectory = TextOrNone(directory);
  if (ShellExecuteExW(&info) == FALSE) return false;
  if (info.hProcess != nullptr) {
    process = NumberOf(info.hProcess);
    processes_[process] = SystemHandle(info.hProcess);
  }
  return true;
}

bool Win32Shell::GetExitCode(ProcessHandle process, std::uint32_t& code) {
  const auto known = processes_.find(process);
  DWORD exitCode = 0;
  if (known == processes_.end() || GetExitCodeProcess(known->second.Get(), &exitCode) == FALSE) return false;
  code = exitCode;
  return true;
}

/// A line that is the path of a program, blanks included, stands in quotes; any other one is taken as it is.
std::wstring Win32Shell::CommandOf(std::string_view commandLine) {
  const std::string_view line = Trim(commandLine);
  const std::optional<std::wstring> native = paths_.Native(line);
  if (native && IsFullPath(line) && AttributesOf(*native) != 0) return L'"' + ForOthers(*native) + L'"';
  return Wide(line);
}

std::int32_t Win32Shell::Start(std::string_view commandLine) {
  std::wstring command = CommandOf(commandLine);
  if (command.empty()) RaiseAbout(failure::kInvalidArgument, commandLine);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION started{};
  const std::wstring program = ProgramOfName(command);
  if (CreateProcessW(TextOrNone(program), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &startup, &started) == FALSE) {
    RaiseAbout(IsMissing(GetLastError()) ? failure::kFileNotFound : failure::kInvalidArgument, commandLine);
  }
  const SystemHandle thread(started.hThread);
  const SystemHandle process(started.hProcess);
  return static_cast<std::int32_t>(started.dwProcessId);
}

}  // namespace qb
