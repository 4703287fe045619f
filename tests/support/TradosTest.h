#pragma once

#include <memory>
#include <string>
#include <vector>

#include "editors/EditorQuestions.h"
#include "foundation/EventLoop.h"
#include "support/WorkflowTest.h"

namespace qb {

/// The program beside the TRADOS tools as a test has them. MultiTerm is installed in `\tools` and comes up,
/// with its window, when it is started; the Workbench is installed and not running.
class TradosTest : public WorkflowTest {
 protected:
  static constexpr const char* kProgram = R"(\tools\MtwpE.exe)";
  static constexpr const char* kEnvironmentKey = R"(Software\TRADOS\MTWPlus\Environment)";

  TradosTest() {
    InstallMultiTerm();
    TheShell().onStart = [this] { ShowMultiTerm(); };
    TheWindows().onKeys = [this] { CloseMultiTerm(); };
    workbench_->objects["TranslationMemory"] = memory_;
    TheAutomation().made["TW4Win.Application"] = workbench_;
    TheAutomation().active["TW4Win.Application"] = workbench_;
  }
  /// The program ends after this, and must find no tool that is gone.
  ~TradosTest() override {
    TheShell().onStart = nullptr;
    TheWindows().onKeys = nullptr;
    TheDde().SetPartner(nullptr);
  }

  void InstallMultiTerm() {
    Write(kProgram, "program");
    ThePlatform().registry->SetText(Hive::kCurrentUser, kEnvironmentKey, "InstallPath-Team", R"(\tools)");
  }

  /// MultiTerm's window comes up, and it answers by `answers_`.
  void ShowMultiTerm() {
    TheWindows().classes.insert("MT4WIN");
    TheWindows().windowTitle = "TRADOS MultiTerm";
    TheDde().SetPartner([this](const std::string& item) { return answers_(item); });
  }
  void CloseMultiTerm() {
    TheWindows().classes.erase("MT4WIN");
    TheWindows().windowTitle.clear();
    TheDde().SetPartner(nullptr);
  }
  void ShowWorkbench() { TheWindows().classes.insert("TW4Win2Class"); }

  /// The items that were asked for since the last `TheDde().Forget()`.
  std::vector<std::string> Items() {
    std::vector<std::string> items;
    for (const std::string& line : TheDde().Log()) {
      constexpr std::string_view kRequest = "request ";
      if (line.starts_with(kRequest)) items.push_back(line.substr(kRequest.size()));
    }
    return items;
  }

  std::function<std::string(const std::string&)> answers_ = [](const std::string&) { return "mt_ok"; };
  std::shared_ptr<FakeAutomationObject> workbench_ = std::make_shared<FakeAutomationObject>();
  std::shared_ptr<FakeAutomationObject> memory_ = std::make_shared<FakeAutomationObject>();
};

}  // namespace qb
