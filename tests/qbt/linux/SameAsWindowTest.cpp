#include <gmock/gmock.h>

#include <cstdlib>
#include <string>

#include "support/WorkflowTest.h"
#include "ui/frmTranslateTitle.h"
#include "workflow/AssignTranslatedFile.h"
#include "workflow/ComponentCommands.h"
#include "workflow/DocumentCommands.h"

namespace qb {
namespace {

/// One package in two folders: in one the window's commands are run through the scripted toolkit, in the
/// other the program `qbt`. Both must turn out the same.
class SameAsWindowTest : public WorkflowTest {
 protected:
  static constexpr const char* kWindow = R"(\window\)";
  static constexpr const char* kTerminal = R"(\terminal\)";

  SameAsWindowTest() {
    for (const char* folder : {kWindow, kTerminal}) {
      const std::string front = folder;
      Write(front + "Trans.pxf", SmallPackage());
      for (const char* version : {"src", "dst"}) {
        for (const char* name : {"styles.css", "menu.js", "menu.gif"}) {
          Write(front + version + R"(\)" + name, std::string(version) + " of " + name);
        }
      }
    }
  }

  /// Runs `qbt` in the terminal's folder and returns its exit code.
  int Qbt(const std::string& arguments) {
    const std::string command = "cd '" + Native(kTerminal).string() + "' && XDG_CONFIG_HOME='" +
                                Native(R"(\config)").string() + "' '" QB_QBT "' " + arguments +
                                " > ../out.txt 2> ../err.txt < /dev/null";
    const int status = std::system(command.c_str());
    return WEXITSTATUS(status);
  }

  void StartWindow() { Start(std::string(kWindow) + "Trans.pxf"); }

  void ExpectSame(const std::string& file) {
    ASSERT_EQ(Exists(kWindow + file), Exists(kTerminal + file)) << file;
    if (!Exists(kWindow + file)) return;
    EXPECT_EQ(Bytes(kWindow + file), Bytes(kTerminal + file)) << file;
  }
  void ExpectSamePackage() {
    for (const char* file :
         {"Trans.pxf", "Trans.BAK", R"(dst\styles.css)", R"(dst\menu.js)", R"(dst\menu.gif)"}) {
      ExpectSame(file);
    }
  }
};

TEST_F(SameAsWindowTest, MarkCompleted_SamePackage) {
  StartWindow();
  SelectNode("DOC1");
  Boxes().AnswerNext(box::kYes);
  QbtMarkCompleted();
  EXPECT_EQ(0, Qbt("--yes mark STYLES completed")) << Bytes(R"(\err.txt)");
  ExpectSamePackage();
  EXPECT_EQ("COMPLETE", Entry(R"(\terminal\Trans.pxf)", "1", "PROGRESS"));
}

TEST_F(SameAsWindowTest, MarksInARow_SamePackage) {
  StartWindow();
  for (const char* key : {"DOC1", "DOC2"}) {
    SelectNode(key);
    Boxes().AnswerNext(box::kYes);
    QbtMarkInProgress();
  }
  SelectNode("DOC2");
  Boxes().AnswerNext(box::kYes);
  QbtMarkToBeTranslated();
  EXPECT_EQ(0, Qbt("-y mark 1 2 in-progress"));
  EXPECT_EQ(0, Qbt("-y mark SCRIPT to-be-translated"));
  ExpectSamePackage();
}

TEST_F(SameAsWindowTest, AssignWithAFurtherFile_SamePackage) {
  Write(R"(\incoming\done.js)", "done");
  Write(R"(\incoming\more.gif)", "more");
  StartWindow();
  SelectNode("DOC2");
  Dialogs().ChooseNext(R"(\incoming\done.js)");
  Dialogs().ChooseNext(R"(\incoming\more.gif)");
  Boxes().AnswerNext(box::kYes);
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_EQ(0, Qbt("assign SCRIPT ../incoming/done.js ../incoming/more.gif"));
  ExpectSamePackage();
  ExpectSame(R"(dst\more.gif)");
  EXPECT_EQ("done", Bytes(R"(\terminal\dst\menu.js)"));
}

TEST_F(SameAsWindowTest, ComponentCommands_SamePackage) {
  Write(R"(\incoming\one.gif)", "one");
  Write(R"(\incoming\two.gif)", "two");
  StartWindow();
  SelectNode("DOC2");
  Dialogs().ChooseNext(R"(\incoming\one.gif)");
  bool cancelled = false;
  std::string added;
  EXPECT_TRUE(QbtInsertComponent(cancelled, added));
  SelectNode("DOC2_menu.gif");
  Dialogs().ChooseNext(R"(\incoming\two.gif)");
  QbtReplaceComponent();
  SelectNode("DOC2_one.gif");
  QbtMarkComponentAsPrimary();
  SelectNode("DOC2_two.gif");
  Boxes().AnswerNext(box::kYes);
  QbtDeleteComponent();
  EXPECT_EQ(0, Qbt("component add SCRIPT ../incoming/one.gif"));
  EXPECT_EQ(0, Qbt("component replace SCRIPT menu.gif ../incoming/two.gif"));
  EXPECT_EQ(0, Qbt("component primary SCRIPT one.gif"));
  EXPECT_EQ(0, Qbt("-y component delete SCRIPT two.gif"));
  ExpectSamePackage();
  ExpectSame(R"(dst\one.gif)");
  ExpectSame(R"(dst\two.gif)");
}

TEST_F(SameAsWindowTest, Title_SamePackage) {
  StartWindow();
  SelectNode("DOC2");
  Kit().WhileNextModal([](Form& form) {
    auto& dialog = dynamic_cast<frmTranslateTitle&>(form);
    dialog.ctlTitleTrans.Text = "The \"menu\"";
    dialog.btnOkay.Click();
  });
  QbtTranslateTitle();
  EXPECT_EQ(0, Qbt("title SCRIPT 'The \"menu\"'"));
  ExpectSamePackage();
  EXPECT_EQ("The \"menu\"", Entry(R"(\terminal\Trans.pxf)", "ADD1", "1VALUE"));
}

TEST_F(SameAsWindowTest, RefusedMark_SamePackage) {
  for (const char* folder : {kWindow, kTerminal}) {
    std::string text = SmallPackage();
    text.insert(text.find("PHIO_COUNT"), "PROGRESS=READONLY\r\n");
    Write(std::string(folder) + "Trans.pxf", text);
  }
  StartWindow();
  SelectNode("DOC1");
  QbtTranslate();
  EXPECT_EQ(1, Qbt("translate STYLES"));
  ExpectSamePackage();
}

}  // namespace
}  // namespace qb
