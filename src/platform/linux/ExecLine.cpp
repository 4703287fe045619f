#include "platform/linux/ExecLine.h"

#include <glib.h>

#include <cstddef>
#include <memory>
#include <string_view>

namespace qb {
namespace {

constexpr std::string_view kOneFile = "fu";
constexpr std::string_view kAllFiles = "FU";

bool IsCode(const std::string& word, std::string_view codes) {
  return word.size() == 2 && word[0] == '%' && codes.find(word[1]) != std::string_view::npos;
}

/// A word with the codes that may stand within it replaced; deprecated codes vanish.
std::string Expanded(const std::string& word, const ExecFields& fields, std::size_t& filesTaken) {
  std::string text;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (word[i] != '%' || i + 1 == word.size()) {
      text.push_back(word[i]);
      continue;
    }
    const char code = word[++i];
    if (code == '%') text.push_back('%');
    if (code == 'c') text += fields.name;
    if (code == 'k') text += fields.entryFile;
    if ((kOneFile.find(code) != std::string_view::npos || kAllFiles.find(code) != std::string_view::npos) &&
        !fields.files.empty()) {
      text += fields.files.front();
      if (filesTaken == 0) filesTaken = 1;
    }
  }
  return text;
}

}  // namespace

std::optional<std::vector<std::string>> CommandWords(const std::string& line) {
  char** words = nullptr;
  if (g_shell_parse_argv(line.c_str(), nullptr, &words, nullptr) == FALSE) return std::nullopt;
  const std::unique_ptr<char*, decltype(&g_strfreev)> owner(words, &g_strfreev);
  std::vector<std::string> result;
  for (char** word = words; *word != nullptr; ++word) result.emplace_back(*word);
  return result;
}

std::vector<std::string> ExecArguments(const std::string& exec, const ExecFields& fields) {
  std::vector<std::string> arguments;
  std::size_t filesTaken = 0;
  for (const std::string& word : CommandWords(exec).value_or(std::vector<std::string>{})) {
    if (IsCode(word, kAllFiles)) {
      arguments.insert(arguments.end(), fields.files.begin(), fields.files.end());
      filesTaken = fields.files.size();
    } else if (IsCode(word, "i")) {
      if (!fields.icon.empty()) arguments.insert(arguments.end(), {"--icon", fields.icon});
    } else {
      std::string argument = Expanded(word, fields, filesTaken);
      if (!argument.empty() || word.empty()) arguments.push_back(std::move(argument));
    }
  }
  if (arguments.empty()) return arguments;
  arguments.insert(arguments.end(), fields.files.begin() + static_cast<std::ptrdiff_t>(filesTaken),
                   fields.files.end());
  return arguments;
}

std::string WithoutFieldCodes(const std::string& exec) {
  std::string command;
  for (const std::string& argument : ExecArguments(exec, {})) {
    if (!command.empty()) command.push_back(' ');
    const bool plain = argument.find_first_of(" \t\n\"'\\$`*?[]#~=%;&|<>()") == std::string::npos;
    const std::unique_ptr<char, decltype(&g_free)> quoted(g_shell_quote(argument.c_str()), &g_free);
    command += plain ? argument : quoted.get();
  }
  return command;
}

}  // namespace qb
