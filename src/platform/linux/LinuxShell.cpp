#include "platform/linux/LinuxShell.h"

#include <glib.h>
#include <sys/wait.h>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <utility>

#include "platform/linux/DesktopApplications.h"
#include "platform/linux/ExecLine.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::string_view kHelpViewer = "hh.exe ";
constexpr std::uint32_t kKilledBySignal = 128;  // plus the signal's number, as shells count

struct StartResult {
  ProcessHandle process = 0;  ///< 0: it could not be started
  int error = 0;              ///< then a number of GSpawnError
};

/// Starts a program with these arguments, the first being its name, in a native folder (empty: the present
/// one).
StartResult StartProgram(const std::vector<std::string>& arguments, const std::string& folder) {
  std::vector<char*> texts;
  texts.reserve(arguments.size() + 1);
  // The library takes the texts as changeable and leaves them alone.
  for (const std::string& argument : arguments) texts.push_back(const_cast<char*>(argument.c_str()));
  texts.push_back(nullptr);
  GPid process = 0;
  GError* failed = nullptr;
  const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
  if (g_spawn_async(folder.empty() ? nullptr : folder.c_str(), texts.data(), nullptr, flags, nullptr, nullptr,
                    &process, &failed) != FALSE) {
    return {process, 0};
  }
  const std::unique_ptr<GError, decltype(&g_error_free)> owner(failed, &g_error_free);
  return {0, failed->code};
}

/// Whether a failed start means that there is no such program. The system answers otherwise for a bare name
/// when a folder of the search path is closed to the user.
bool IsMissing(const StartResult& failed, const std::string& program) {
  if (failed.error == G_SPAWN_ERROR_NOENT || failed.error == G_SPAWN_ERROR_NOTDIR) return true;
  if (program.find('/') != std::string::npos) return false;
  const std::unique_ptr<char, decltype(&g_free)> found(g_find_program_in_path(program.c_str()), &g_free);
  return found == nullptr;
}

/// The pieces of a parameter text; one with a blank stands in double quotes, and a backslash means itself.
std::vector<std::string> QuotedPieces(std::string_view parameters) {
  std::vector<std::string> pieces;
  std::string piece;
  bool quoted = false;
  bool begun = false;
  for (const char byte : parameters) {
    if (byte == '"') {
      quoted = !quoted;
      begun = true;
    } else if (byte == ' ' && !quoted) {
      if (begun) pieces.push_back(std::exchange(piece, {}));
      begun = false;
    } else {
      piece.push_back(byte);
      begun = true;
    }
  }
  if (begun) pieces.push_back(std::move(piece));
  return pieces;
}

/// A word of a hive command with "%1" as the file, "%*" as all further arguments and "%%" as a percent sign.
std::string WithArguments(const std::string& word, const std::string& file,
                          const std::vector<std::string>& further) {
  std::string text;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const char code = word[i] == '%' && i + 1 < word.size() ? word[i + 1] : '\0';
    if (code == '1') text += file;
    if (code == '%') text.push_back('%');
    if (code == '*') {
      for (const std::string& argument : further) text += (&argument == further.data() ? "" : " ") + argument;
    }
    if (code == '1' || code == '%' || code == '*') {
      ++i;
    } else {
      text.push_back(word[i]);
    }
  }
  return text;
}

std::vector<std::string> HiveArguments(const std::string& command, const std::string& file,
                                       const std::vector<std::string>& further) {
  std::vector<std::string> arguments;
  for (const std::string& word : CommandWords(command).value_or(std::vector<std::string>{})) {
    if (word == "%*") {
      arguments.insert(arguments.end(), further.begin(), further.end());
    } else {
      arguments.push_back(WithArguments(word, file, further));
    }
  }
  return arguments;
}

}  // namespace

std::optional<std::string> LinuxShell::ExistingFile(const ShellRequest& request) {
  const bool isPath = request.file.starts_with('\\');
  const std::string path =
      isPath || request.directory.empty() ? request.file : request.directory + "\\" + request.file;
  std::optional<std::string> native = files_.NativeExisting(path);
  std::error_code failed;
  if (!native || !std::filesystem::is_regular_file(*native, failed)) return std::nullopt;
  return native;
}

std::vector<std::string> LinuxShell::FurtherArguments(std::string_view parameters) {
  std::vector<std::string> arguments = QuotedPieces(parameters);
  for (std::string& argument : arguments) {
    if (argument.starts_with('\\')) argument = files_.NativeForCreation(argument);
  }
  return arguments;
}

std::string LinuxShell::HiveCommand(const std::string& native, std::string_view verb) {
  const std::string extension = std::filesystem::path(native).extension().string();
  if (extension.empty()) return {};
  std::string type = registry_.ClassesRootDefault(extension);
  if (type.empty()) type = extension;
  return registry_.ClassesRootDefault(type + "\\shell\\" + std::string(verb) + "\\command");
}

bool LinuxShell::Execute(const ShellRequest& request, ProcessHandle& process) {
  process = 0;
  const std::optional<std::string> file = ExistingFile(request);
  if (!file || request.verb.empty() || IsProgramFile(*file)) return false;
  const std::vector<std::string> further = FurtherArguments(request.parameters);
  const std::string hiveCommand = HiveCommand(*file, request.verb);
  const std::vector<std::string> command = hiveCommand.empty() ? DesktopCommand(*file, request.verb, further)
                                                               : HiveArguments(hiveCommand, *file, further);
  if (command.empty()) return false;
  const std::string folder =
      request.directory.empty() ? std::string{} : files_.NativeExisting(request.directory).value_or("");
  const StartResult started = StartProgram(command, folder);
  if (started.process == 0) return false;
  process = started.process;
  Watch(process);
  return true;
}

bool LinuxShell::GetExitCode(ProcessHandle process, std::uint32_t& code) {
  const auto known = exitCodes_.find(process);
  if (known == exitCodes_.end()) return false;
  if (known->second == kStillActive) {
    int status = 0;
    pid_t ended = 0;
    do {
      ended = waitpid(process, &status, WNOHANG);
    } while (ended < 0 && errno == EINTR);
    if (ended < 0) {
      known->second = 0;  // somebody else has waited for it, so it has ended
    } else if (ended > 0) {
      known->second = static_cast<std::uint32_t>(WIFEXITED(status) ? WEXITSTATUS(status)
                                                                   : kKilledBySignal + WTERMSIG(status));
    }
  }
  code = known->second;
  return true;
}

std::vector<std::string> LinuxShell::CommandOf(std::string_view commandLine) {
  const std::string_view line = Trim(commandLine);
  if (!line.starts_with('\\') && !line.starts_with("\"\\")) {
    return CommandWords(std::string(line)).value_or(std::vector<std::string>{});
  }
  // A path of the program's own, which may hold blanks; it is no program if it does not exist.
  if (const auto whole = files_.NativeExisting(line)) return {*whole};
  std::vector<std::string> words = QuotedPieces(line);
  words.front() = files_.NativeExisting(words.front()).value_or(words.front());
  return words;
}

std::int32_t LinuxShell::ShowHelpFile(std::string_view path) {
  ProcessHandle process = 0;
  if (Execute({"Open", std::string(path), {}, {}}, process)) return process;
  RaiseAbout(failure::kFileNotFound, "a program that shows " + std::string(path));
}

std::int32_t LinuxShell::Start(std::string_view commandLine) {
  for (const auto& [process, exitCode] : exitCodes_) {
    std::uint32_t code = 0;
    GetExitCode(process, code);  // takes notice of programs that nobody asks after
  }
  if (EqualIgnoringCase(FirstCharacters(commandLine, kHelpViewer.size()), kHelpViewer)) {
    return ShowHelpFile(Trim(commandLine.substr(kHelpViewer.size())));
  }
  const std::vector<std::string> words = CommandOf(commandLine);
  if (words.empty() || words.front().empty()) RaiseAbout(failure::kInvalidArgument, commandLine);
  const StartResult started = StartProgram(words, {});
  if (started.process == 0) {
    RaiseAbout(IsMissing(started, words.front()) ? failure::kFileNotFound : failure::kInvalidArgument,
               words.front());
  }
  Watch(started.process);
  return started.process;
}

}  // namespace qb
