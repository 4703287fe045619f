#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qb {

/// The words of a command line with shell quoting; nothing if it has none or its quotes do not match.
std::optional<std::vector<std::string>> CommandWords(const std::string& line);

/// What the field codes of a desktop entry's command stand for.
struct ExecFields {
  std::vector<std::string> files;  ///< absolute native paths; codes for one file take the first
  std::string icon;
  std::string name;
  std::string entryFile;
};

/// The arguments of a desktop entry's command. Files for which it has no code are added at its end.
std::vector<std::string> ExecArguments(const std::string& exec, const ExecFields& fields);

/// The command without its field codes, quoted again.
std::string WithoutFieldCodes(const std::string& exec);

}  // namespace qb
