#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "support/PackageBuilder.h"
#include "support/WorkflowTest.h"
#include "ui/frmTranslateTitle.h"
#include "workflow/DocumentCommands.h"

namespace qb {

inline constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

/// Documents with their titles in different places, in this order of sections:
///   TITLED   in a property; NEW has none, but a previous one; INSIDE has it in its document; SOURCE has no
///   version in the target language; DESCRIBED has a description and a property; BAD has an ill-formed
///   property list.
inline PackageBuilder Titles() {
  PackageBuilder package;
  package.Loio("TITLED")
      .Phio("DST_CURR", "dst")
      .File("a.css", "PRIM")
      .Property("AUTHOR", "Ann")
      .Property("DESCRIPTION", "Styles");
  package.Phio("SRC_CURR", "src", "CSS", "Stile").File("a.css", "PRIM");
  package.Loio("NEW").Phio("DST_CURR", "dst").File("b.css", "PRIM");
  package.Phio("SRC_CURR", "src").File("b.css", "PRIM");
  package.Phio("SRC_PREV", "old", "CSS", "Altes Men\xFC").File("b.css", "PRIM");
  package.Phio("DST_PREV", "old", "CSS", "Old menu").File("b.css", "PRIM");
  package.Loio("INSIDE", "DOC_HTML").Phio("DST_CURR", "dst", "DOC", "Text").File("c.doc", "PRIM");
  package.Loio("SOURCE", "CSS", "UNCHANGED").Phio("SRC_CURR", "src", "CSS", "Quelle").File("d.css", "PRIM");
  package.Loio("DESCRIBED")
      .Phio("DST_CURR", "dst", "CSS", "Described")
      .File("e.css", "PRIM")
      .Property("DESCRIPTION", "x");
  return package;
}

class TranslateTitleTest : public WorkflowTest {
 protected:
  TranslateTitleTest() {
    Write(kPackage, Titles().Text());
    TheClock().SetLocalNow({2200, 1, 1, 0, 0, 0});
    Start(kPackage);
    Kit().calls.clear();
  }

  /// Runs the command on a document; in the dialog the user does what `play` does.
  void Translate(std::string_view key, std::function<void(frmTranslateTitle&)> play) {
    Kit().WhileNextModal(
        [play = std::move(play)](Form& form) { play(dynamic_cast<frmTranslateTitle&>(form)); });
    SelectNode(key);
    QbtTranslateTitle();
  }

  /// Types a title and presses Ok.
  static std::function<void(frmTranslateTitle&)> Type(const std::string& title) {
    return [title](frmTranslateTitle& form) {
      form.ctlTitleTrans.Text = title;
      form.btnOkay.Click();
    };
  }

  /// Types a title that is refused; the dialog stays, and the user cancels.
  void TypeInVain(std::string_view key, const std::string& title) {
    Translate(key, [&](frmTranslateTitle& form) {
      form.ctlTitleTrans.Text = title;
      form.btnOkay.Click();
      EXPECT_TRUE(form.Visible) << "the dialog must stay";
      EXPECT_EQ(form.ctlTitleTrans.Text.Get(), title);
      form.btnCancel.Click();
      EXPECT_FALSE(form.Visible);
    });
  }

  std::string State(std::string_view key) { return gLoios->Item(key)->state->ExternalizeState(); }
  std::string Value(std::string_view section, std::string_view key) { return Entry(kPackage, section, key); }
  /// The title that a fresh reader of the package finds.
  std::string StoredTitle() { return Value("ADD1", "2VALUE"); }
  std::string Protocol() { return Bytes(R"(\pkg\Protocol.txt)"); }
};

}  // namespace qb
