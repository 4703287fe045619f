#pragma once

#include <string>
#include <string_view>

#include "support/FakeApplications.h"
#include "support/FakeShell.h"
#include "support/ScriptedToolkit.h"
#include "support/TestPlatform.h"
#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"
#include "workflow/TranslateMod.h"

namespace qb {

/// The whole program without a display, on a drive of its own: scripted toolkit, boxes and dialogs, a clock
/// that stands still, a shell whose editors run until the test ends them.
class WorkflowTest : public PlatformTest {
 protected:
  WorkflowTest();
  ~WorkflowTest() override;

  /// Starts the program as its entry does. The trace goes to `\trace.txt`.
  void Start(std::string_view commandTail = {});

  /// Runs `play`; true if the process ended in it.
  template <class Play>
  bool EndsProcess(Play&& play) {
    try {
      play();
      return false;
    } catch (const ProcessEnded&) {
      return true;
    }
  }

  frmQBTranslator& Window() { return Default<frmQBTranslator>(); }
  ScriptedToolkit& Kit() { return *toolkit_; }
  FakeShell& TheShell() { return *shell_; }
  FakeAutomation& TheAutomation() { return *automation_; }
  FakeWindows& TheWindows() { return *windows_; }
  FakeDde& TheDde() { return *dde_; }
  FakeClock& TheClock() { return *clock_; }

  void SelectNode(std::string_view key) { Window().TransPackTree.Select(&Window().TransPackTree.Nodes(key)); }
  /// One tick of the refresh timer, if it is on.
  void Tick();

  /// A setting as it is stored.
  std::string Setting(std::string_view name);
  void SetSetting(std::string_view name, std::string_view value);

  /// A value of the package file at `path`.
  static std::string Entry(std::string_view path, std::string_view section, std::string_view key);
  /// Lines of the trace without date and computer name; only those of `level` words is up to the caller.
  std::vector<std::string> TraceLines() const;

 private:
  ScriptedToolkit* toolkit_ = nullptr;
  FakeShell* shell_ = nullptr;
  FakeAutomation* automation_ = nullptr;
  FakeWindows* windows_ = nullptr;
  FakeDde* dde_ = nullptr;
  FakeClock* clock_ = nullptr;
  std::unique_ptr<Toolkit> toolkitBefore_;
};

/// A package of two documents: "DOC1", a style sheet with a translation and its source, and "DOC2", the same
/// with an image as second component and its title in a property. GUIDs are the names.
std::string SmallPackage(bool localization = false);

}  // namespace qb
