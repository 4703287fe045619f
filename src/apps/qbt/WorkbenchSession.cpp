#include "apps/qbt/WorkbenchSession.h"

#include <fmt/format.h>

#include <array>
#include <chrono>
#include <csignal>
#include <memory>
#include <thread>
#include <utility>

#include "apps/qbt/ExitCode.h"
#include "apps/qbt/HostTerminal.h"
#include "apps/qbt/PackageArgument.h"
#include "runtime/RuntimeError.h"
#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"
#include "workflow/OpenPackage.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

constexpr std::chrono::milliseconds kPoll{100};

volatile std::sig_atomic_t interrupted = 0;

/// Notes an interruption instead of dying of it, while it lives: an open document must be closed first.
class InterruptionNoted {
 public:
  InterruptionNoted() {
    interrupted = 0;
    for (std::size_t i = 0; i < kEndingSignals.size(); ++i) before_[i] = std::signal(kEndingSignals[i], Note);
  }
  InterruptionNoted(const InterruptionNoted&) = delete;
  InterruptionNoted& operator=(const InterruptionNoted&) = delete;
  ~InterruptionNoted() {
    for (std::size_t i = 0; i < kEndingSignals.size(); ++i) std::signal(kEndingSignals[i], before_[i]);
  }

 private:
  using Handler = void (*)(int);
  static void Note(int) { interrupted = 1; }

  std::array<Handler, kEndingSignals.size()> before_{};
};

/// Runs what may end the process in the middle, which a terminal program does by unwinding.
template <class Body>
void UntilEnd(Body body) {
  try {
    body();
  } catch (const ProcessEnded&) {
    return;
  }
}

bool IsOpen(const std::string& package) {
  return gPxfFile != nullptr && gLoios != nullptr && gPxfFile->strFileName == package;
}

}  // namespace

WorkbenchSession::WorkbenchSession(const CommandLine& line, Terminal& terminal, const std::string& package)
    : terminal_(terminal) {
  Platform& platform = ThePlatform();
  auto boxes = std::make_unique<TerminalBoxes>(terminal, line.yes);
  auto fileDialogs = std::make_unique<TerminalFileDialogs>();
  auto toolkit = std::make_unique<TerminalToolkit>(terminal);
  boxes_ = boxes.get();
  fileDialogs_ = fileDialogs.get();
  toolkit_ = toolkit.get();
  platform.messageBoxes = std::move(boxes);
  platform.fileDialogs = std::move(fileDialogs);
  platform.clipboard = std::make_unique<TerminalClipboard>(terminal);
  platform.mousePointer = std::make_unique<NoMousePointer>();
  // Selections are made in the tree. The trace is for those who ask for it.
  platform.registry = std::make_unique<SessionRegistry>(
      std::move(platform.registry),
      std::vector<std::pair<std::string, std::string>>{
          {"ViewDetailed", "0"},
          {"Trace", line.trace.empty() ? "0" : "1"},
          {"TraceFile", line.trace.empty() ? std::string() : KeptPath(NativePath(line.trace))}});
  InstallToolkit(std::move(toolkit));
  UntilEnd([&] { Main(package); });
  const CommandOutcome& opening = boxes_->Outcome;
  if (IsOpen(package) && !opening.failed && !opening.unanswered) return;
  const int exitCode = opening.unanswered ? exitcode::kUnanswered : exitcode::kUnreadable;
  const std::string what = IsOpen(package) ? "cannot be changed" : "could not be opened";
  ResetProgramState();
  throw CommandFailure(exitCode, fmt::format("{} {}", ShownPath(package), what));
}

WorkbenchSession::~WorkbenchSession() {
  boxes_->Subject.clear();
  UntilEnd([] {
    // Sessions and protocol end while the package is there, so that its last lines stand beside it.
    if (gEditorSlots != nullptr && !Attempt([] { gEditorSlots->CloseAllSlots(true); })) Err.Clear();
    gMessageHandler.reset();
    QbtQuit(true);
  });
  ResetProgramState();
}

void WorkbenchSession::Select(std::string_view key, std::string_view component) {
  TableTree& tree = Default<frmQBTranslator>().TransPackTree;
  const std::string node = component.empty() ? std::string(key) : fmt::format("{}_{}", key, component);
  TreeNode* found = tree.FindNode(node);
  if (found == nullptr) {
    throw CommandFailure(exitcode::kUsage, component.empty()
                                               ? fmt::format("the document {} has gone", key)
                                               : fmt::format("the translation has no file {}", component));
  }
  tree.Select(found);
}

int WorkbenchSession::RunEditor(bool (*open)()) {
  const InterruptionNoted noted;
  if (!open()) return exitcode::kRefused;
  const auto start = std::chrono::steady_clock::now();
  while (interrupted == 0) {
    QbtRefresh();
    if (gEditorSlots == nullptr || gEditorSlots->CheckSlots()) break;
    const auto passed =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start).count();
    constexpr auto kMinute = 60;
    terminal_.DrawLine(fmt::format("{} is in its editor for {}:{:02} - close the editor to go on",
                                   boxes_->Subject, passed / kMinute, passed % kMinute));
    std::this_thread::sleep_for(kPoll);
  }
  terminal_.ClearProgress();
  return interrupted == 0 ? exitcode::kFine : exitcode::kInterrupted;
}

}  // namespace qb
