#include <exception>

#include "apps/qbt/CommandLine.h"
#include "apps/qbt/Commands.h"
#include "apps/qbt/ExitCode.h"
#include "apps/qbt/HostTerminal.h"
#include "apps/qbt/Terminal.h"
#include "platform/HostPlatform.h"

namespace {

int Run(const qb::CommandLine& line, qb::Terminal& terminal) {
  switch (line.command) {
    case qb::Command::kList:
      return qb::RunList(line, terminal);
    case qb::Command::kShow:
      return qb::RunShow(line, terminal);
    case qb::Command::kStatus:
      return qb::RunStatus(line, terminal);
    case qb::Command::kCheck:
      return qb::RunCheck(line, terminal);
    case qb::Command::kNew:
      return qb::RunNew(line, terminal);
    default:
      return qb::RunChange(line, terminal);
  }
}

}  // namespace

int main(int argc, char** argv) {
  int exitCode = qb::exitcode::kFine;
  const std::optional<qb::CommandLine> line = qb::ReadCommandLine(qb::PrepareTerminal(argc, argv), exitCode);
  if (!line) return exitCode;
  qb::InstallPlatform(qb::MakeHostPlatform());
  qb::Terminal terminal;
  try {
    return Run(*line, terminal);
  } catch (const qb::CommandFailure& failure) {
    terminal.Tell(failure.what());
    return failure.ExitCode();
  } catch (const std::exception& failure) {
    terminal.Tell(failure.what());
    return qb::exitcode::kUnreadable;
  }
}
