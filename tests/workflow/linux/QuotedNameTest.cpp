#include <gmock/gmock.h>

#include "support/WorkflowTest.h"
#include "workflow/DocumentCommands.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

/// Names that Windows does not allow.
class QuotedNameTest : public WorkflowTest {};

TEST_F(QuotedNameTest, QbtTranslate_NameWithAQuote_IsNoParameterOfTheEditor) {
  std::string text = SmallPackage();
  text.replace(text.find("2FILE_NAME1=styles.css"), 22, "2FILE_NAME1=a\" --run \"b.css");
  Write(R"(\hostile\Trans.pxf)", text);
  Write(R"(\hostile\dst\styles.css)", "x");
  Write("\\hostile\\src\\a\" --run \"b.css", "x");
  Start(R"(\hostile\Trans.pxf)");
  SelectNode("DOC1");
  QbtTranslate();
  for (const ShellRequest& request : TheShell().requests) EXPECT_EQ(request.parameters, "");
}

}  // namespace
}  // namespace qb
