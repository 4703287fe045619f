#include <string>

#include "foundation/Product.h"
#include "model/CLoioEntry.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "ui/Forms.h"
#include "ui/Toolkit.h"
#include "ui/frmTranslateTitle.h"
#include "workflow/CommandReport.h"
#include "workflow/DocumentCommands.h"
#include "workflow/Selection.h"
#include "workflow/TitleDialog.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

/// The state of a document while its title is being edited. Unless the edit was ended, a failure gives the
/// document the state back that it had: nothing has been written yet.
class TitleEdit {
 public:
  explicit TitleEdit(CState& state)
      : state_(state), before_(state.myState), begun_(state.TitleEditTransition()) {}
  TitleEdit(const TitleEdit&) = delete;
  TitleEdit& operator=(const TitleEdit&) = delete;
  ~TitleEdit() {
    if (begun_ && !ended_) state_.myState = before_;
  }

  bool Begun() const { return begun_; }
  void End() { ended_ = true; }

 private:
  CState& state_;
  std::int32_t before_;
  bool begun_;
  bool ended_ = false;
};

std::string FirstOf(const std::string& current, const std::string& previous) {
  return current.empty() ? previous : current;
}

/// Brings the dialog up with the document's titles. The new title, or `before` if there is none.
std::string AskForTitle(const CLoioEntry& loio, std::string& before) {
  const std::string source = loio.GetTitle(role::kSrcCurr);
  const std::string previousSource = loio.GetTitle(role::kSrcPrev);
  const std::string target = loio.GetTitle(role::kDstCurr);
  const std::string previousTarget = loio.GetTitle(role::kDstPrev);
  auto& form = Default<frmTranslateTitle>();
  form.ctlTitleOrig.Text = FirstOf(source, previousSource);
  form.ctlTitleTrans.Text = FirstOf(target, previousTarget);
  form.ctlTitleTrans.SelStart = 0;
  form.ctlTitleTrans.SelLength = static_cast<int>(CharacterCount(form.ctlTitleTrans.Text.Get()));
  before = Trim(form.ctlTitleTrans.Text.Get());
  form.Objection = [&loio](const std::string& title) { return TitleObjection(loio, title); };
  gTitleDialogResult = kTitleCancelled;  // a dialog that goes without an answer is one
  TheToolkit().SetFocus(form.ctlTitleTrans);
  TheToolkit().ShowModal(form);
  form.Objection = nullptr;
  return std::string(Trim(form.ctlTitleTrans.Text.Get()));
}

/// Writes title and state to the package, both or neither. False if the state refused.
bool StoreTitle(CLoioEntry& loio, const std::string& title, TitleEdit& edit) {
  const ProfileBatch oneFlush(*ThePlatform().profiles, gPxfFile->strFileName);
  const auto target = loio.GetPhio(false);
  const bool isNew = target != nullptr && !target->HasTitleProperty();
  loio.SetTitle(title);
  if (isNew) loio.SaveTitle(title);  // a first title is only in memory until it is set once more
  edit.End();
  return loio.SaveTransition();
}

void TranslateTitle() {
  const std::string key = GetKeyFromSelection();
  if (key.empty()) return;
  if (key == "@ROOT") {  // the selection blanks the root; the test stands all the same
    MsgBox(
        QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATETIT001766.T.00094|Cannot translate PXF files"));
    return;
  }
  gEditorSlots->CheckSlots();
  const auto loio = gLoios->Item(key);
  if (loio->state->isReadOnly()) {
    MsgBox(QBL_LText(
        "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATETIT001766.T.00095|Cannot change progress status "
        "of a read-only object"));
    return;
  }
  if (loio->state->IsOpen()) {
    MsgBox(QBL_LText(
        "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATETIT001766.T.00096|Cannot translate title of open "
        "documents"));
    return;
  }
  // Asked of the state itself: what is written is left to the end of the edit.
  TitleEdit edit(*loio->state);
  if (!edit.Begun()) {
    MsgBox("Cannot translate titles for this type of document");
    return;
  }
  if (loio->hasTitleProperty() && !loio->hasTitleToSet()) {
    MsgBox(
        QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATETIT001766.T.00097|Document title need not be "
                  "translated separately ") +
        "\r\n" +
        QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATETIT001766.T.00098|for this type of document "
                  "as it is part of the document itself"));
    edit.End();
    loio->CancelTransition();
    return;
  }
  std::string before;
  const std::string after = AskForTitle(*loio, before);
  if (after == before || gTitleDialogResult == kTitleCancelled) {
    edit.End();
    if (!loio->CancelTransition()) {
      MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATETIT001766.T.00101|State change failed"));
    }
    loio->Update();
    return;
  }
  if (!StoreTitle(*loio, after, edit)) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATETIT001766.T.00099|State change failed"));
    return;
  }
  gPxfFile->UpdateFileSize();
  gMessageHandler->Message(
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATETIT001766.T.00100|Translating title: ") + key, 0,
      false, false);
  Trace(1, "TranslateMod", "QbtTranslateTitle", "TRANSLATING TITLE: {}", key);
}

}  // namespace

void QbtTranslateTitle() {
  const TimersOff timersOff;
  Attempt(TranslateTitle);
  constexpr std::string_view kError =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATETIT001766.T.00102|An error has occurred during title "
      "translation: #%1: %2";
  ReportCommand("QbtTranslateTitle", {kError, kError});
}

void QbtTranslateProperties() {
  constexpr std::string_view kError =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATEPRO002321.T.00103|An error has occurred during property "
      "translation: #%1: %2";
  ReportCommand("QbtTranslateProperties", {kError, kError});
}

}  // namespace qb
