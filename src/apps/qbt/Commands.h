#pragma once

#include "apps/qbt/CommandLine.h"
#include "apps/qbt/Terminal.h"

namespace qb {

// One function for each command; the result is the exit code. They raise CommandFailure.

// These read the package file and the files beside it, and write nothing at all.
int RunList(const CommandLine& line, Terminal& terminal);
int RunShow(const CommandLine& line, Terminal& terminal);
int RunStatus(const CommandLine& line, Terminal& terminal);
int RunCheck(const CommandLine& line, Terminal& terminal);

/// Runs the commands that change the package: the very ones of the window.
int RunChange(const CommandLine& line, Terminal& terminal);

/// Makes a package.
int RunNew(const CommandLine& line, Terminal& terminal);

}  // namespace qb
