#pragma once

#include "support/WorkflowTest.h"
#include "ui/frmFileCheckinDialog.h"
#include "workflow/AssignTranslatedFile.h"
#include "workflow/FileCommandTest.h"

namespace qb {

/// The question after the check-in of `\done\new.css`.
inline constexpr std::string_view kFirstQuestion =
    "You have successfully checked in file '\\done\\new.css' as primary component.\r\nDo any further files "
    "belong to the translation?";

class AssignTranslatedFileTest : public FileCommandTest {
 protected:
  /// The calls of the toolkit that have to do with the dialog.
  std::vector<std::string> DialogCalls() {
    std::vector<std::string> calls;
    for (const std::string& call : Kit().calls) {
      if (call.ends_with("frmFileCheckinDialog")) calls.push_back(call.substr(0, call.find(' ')));
    }
    return calls;
  }
  frmFileCheckinDialog& Dialog() { return Default<frmFileCheckinDialog>(); }
};

}  // namespace qb
