#pragma once

#include <string>
#include <string_view>

#include "apps/qbt/CommandLine.h"
#include "apps/qbt/TerminalDesktop.h"
#include "apps/qbt/TerminalToolkit.h"

namespace qb {

/// The workbench with a package open in it, as its window would have it, at a terminal. One at a time.
class WorkbenchSession {
 public:
  /// Starts the program and opens the package. Raises CommandFailure if it did not open, or cannot be
  /// changed; why has been said then.
  WorkbenchSession(const CommandLine& line, Terminal& terminal, const std::string& package);
  WorkbenchSession(const WorkbenchSession&) = delete;
  WorkbenchSession& operator=(const WorkbenchSession&) = delete;
  /// Quits the program.
  ~WorkbenchSession();

  TerminalBoxes& Boxes() { return *boxes_; }
  TerminalFileDialogs& FileDialogs() { return *fileDialogs_; }
  TerminalToolkit& Kit() { return *toolkit_; }

  /// Selects a document, or one of its files. Raises CommandFailure if there is none.
  void Select(std::string_view key, std::string_view component = {});

  /// Sends the selected document to its editor by `open`, and waits until that has gone. The result is an
  /// exit code.
  int RunEditor(bool (*open)());

 private:
  Terminal& terminal_;
  TerminalBoxes* boxes_;
  TerminalFileDialogs* fileDialogs_;
  TerminalToolkit* toolkit_;
};

}  // namespace qb
