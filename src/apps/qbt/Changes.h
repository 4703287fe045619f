#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/qbt/CommandLine.h"
#include "apps/qbt/WorkbenchSession.h"

namespace qb {

/// Runs one of the workbench's commands on the selected document. `files` are kept paths. The result is an
/// exit code; boxes that refused something are in the session's outcome.
using Change = std::function<int(WorkbenchSession& session, const std::vector<std::string>& files)>;

/// What a command line asks to be done. Raises CommandFailure if the command could not take its arguments.
Change ChangeOf(const CommandLine& line);

}  // namespace qb
