#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qb {

enum class Command {
  kList,
  kShow,
  kStatus,
  kCheck,
  kMark,
  kTitle,
  kAssign,
  kComponentAdd,
  kComponentReplace,
  kComponentReplaceAll,
  kComponentPrimary,
  kComponentDelete,
  kTranslate,
  kNew,
};

/// What the user asked for.
struct CommandLine {
  Command command = Command::kList;
  std::string package;                 ///< a file, a folder, or empty for the only one in the current folder
  std::string trace;                   ///< file for the trace; empty: none
  bool yes = false;                    ///< every question is answered with yes
  bool json = false;                   ///< the result as JSON
  bool strict = false;                 ///< warnings count as errors
  std::vector<std::string> documents;  ///< names of documents
  std::vector<std::string> files;      ///< files that are handed over
  std::string component;               ///< a component file of the document
  std::string state;                   ///< the mark to set, or the only documents to list
  std::string title;
  bool localization = false;  ///< the new package is one for localization
  std::string sourceLanguage;
  std::string targetLanguage;
  std::string folder;        ///< of source documents
  std::string targetFolder;  ///< of the package to make; empty: beside the sources' folder
};

/// Reads the arguments, without the program's name. Nothing if there is nothing to do: help or version was
/// asked for, or the arguments are wrong; then it has said so, and `exitCode` is set.
std::optional<CommandLine> ReadCommandLine(std::vector<std::string> arguments, int& exitCode);

}  // namespace qb
