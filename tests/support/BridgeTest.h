#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "editors/CEditor.h"
#include "support/ScriptedBridge.h"
#include "support/WorkflowTest.h"

namespace qb {

/// The program with a scripted office and a package whose document "DOC1" belongs to it. The translation is
/// `\pkg\dst\text.<ext>`, the source `\pkg\src\text.<ext>`.
class BridgeTest : public WorkflowTest {
 protected:
  static constexpr const char* kPackage = R"(\pkg\Trans.pxf)";

  /// Starts the program with "DOC1" of this edit process and format, and with an office that can do
  /// everything.
  void StartWith(std::string_view process, std::string_view format);
  void StartWithWord() { StartWith("", "DOC"); }
  void StartWithPresentation() { StartWith("", "PPT"); }
  void StartWithVisio() { StartWith("VSD_HTML", "VSD"); }
  void StartWithHtml() { StartWith("HTML", "HTML"); }

  /// Opens "DOC1" in a session, its content edit begun, and forgets the calls so far.
  void OpenSession();

  ScriptedBridge& Office() { return *office_; }
  ScriptedDocument& Translation() { return office_->Describe(translation_); }
  std::string State();
  std::string Progress() { return Entry(kPackage, "1", "PROGRESS"); }
  /// The title that the package holds for the translation.
  std::string Title() { return Entry(kPackage, "ADD2", "1VALUE"); }
  /// The addresses that the package holds for the translation, each with a blank behind it, after their
  /// count.
  std::string Links();
  bool Shows(const std::string& path) { return office_->Shows(path); }

  std::string translation_;
  std::string source_;
  std::shared_ptr<ScriptedBridge> office_;
  std::shared_ptr<CEditor> session_ = std::make_shared<CEditor>();
  int closes_ = 0;  ///< how often the session has said that it ended
};

}  // namespace qb
