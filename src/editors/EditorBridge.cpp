// The route through the Document Bridge: source and translation are opened together, and events tell what
// becomes of them.

#include <exception>
#include <utility>

#include "editors/CEditor.h"
#include "editors/EditorQuestions.h"
#include "editors/EditorState.h"
#include "foundation/CTrace.h"
#include "foundation/Product.h"
#include "foundation/modMultiLanguage.h"
#include "model/CPxfFile.h"
#include "runtime/RuntimeError.h"

namespace qb {

EditorQuestions gEditorQuestions;

namespace {

constexpr std::string_view kModule = "CEditor";

[[noreturn]] void RaiseOwn(std::string description) {
  throw RuntimeError(failure::kOwn, std::string(kModule), std::move(description));
}

std::shared_ptr<IBridge> NewBridge(std::string_view ifNone) {
  std::shared_ptr<IBridge> bridge;
  if (gEditorQuestions.newDocumentBridge) bridge = gEditorQuestions.newDocumentBridge();
  if (bridge == nullptr) {
    RaiseOwn(QBL_LText("QB.QBTRANSLAT.CEDITOR.000.OPENFORTRANSLAT001864.T.00001|Your installation may have "
                       "been corrupted.") +
             "\r\n" + std::string(ifNone));
  }
  return bridge;
}

std::int32_t DocumentsOfGroup(const std::shared_ptr<IBridge>& bridge, const std::string& path) {
  const auto group = Existing(Existing(bridge).Groups()).Item(path);
  return Existing(Existing(group).Documents()).Count();
}

/// What the application of the documents can do.
struct Capabilities {
  std::int32_t openMode = bridge_mode::kWritable;
  bool arrange2 = false;
  bool arrange3 = false;
};

Capabilities AskCapabilities(IBridge& bridge, const std::string& source) {
  Capabilities found;
  const std::string mime = CEditor::GetMIMEType(source);
  if (mime.empty()) return found;
  found.arrange3 = bridge.QueryCapability(mime, bridge_capability::kArrange3) != 0;
  found.arrange2 = bridge.QueryCapability(mime, bridge_capability::kArrange2) != 0;
  if (bridge.QueryCapability(mime, bridge_capability::kOpenReadOnly) != 0) {
    found.openMode = bridge_mode::kReadOnly;
  }
  return found;
}

std::shared_ptr<IBridgeDocument> OpenIn(const std::shared_ptr<IBridgeGroup>& group, const std::string& path,
                                        std::int32_t mode) {
  return AskFor<IBridgeDocument>(Existing(Existing(group).Documents()).Open(path, mode));
}

/// Lets go of a document, whose events no longer reach the session.
void Empty(std::shared_ptr<IBridgeDocument>& document) {
  if (document == nullptr) return;
  document->OnPostClose = nullptr;
  document->OnPostLocalSave = nullptr;
  document.reset();
}

/// Closes the group's documents, if it still has any. The group outlives the events of the close.
void CloseIfNotEmpty(
    const std::shared_ptr<IBridgeGroup> group) {  // NOLINT(performance-unnecessary-value-param)
  if (group != nullptr && Existing(group->Documents()).Count() > 0) group->Close();
}

}  // namespace

void CEditor::OpenThroughBridge(const CLoioEntry& loio, const std::string& source,
                                const std::string& translation) {
  if (RefusesPath(translation) || (!loio.GetSourceFileName().empty() && RefusesPath(source))) return;
  const bool single = loio.hasSingleDocEditor();
  objBridge_ = NewBridge("(Internal error: could not create Document Bridge)");
  if (single) objSecondBridge_ = NewBridge("(Internal error: could not create second Document Bridge)");
  lngOpenDocuments_ = CountOpenDocuments(single, source, translation);
  if (lngOpenDocuments_ > 0) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.CEDITOR.000.OPENFORTRANSLAT001864.T.00002|Document is already open!"));
    return;
  }
  grpDst_ = AskFor<IBridgeGroup>(Existing(objBridge_->Groups()).Add(translation));
  grpSrc_ = single ? AskFor<IBridgeGroup>(Existing(objSecondBridge_->Groups()).Add(source)) : grpDst_;
  if (grpDst_ == nullptr || grpSrc_ == nullptr) RaiseOwn("Internal error: Could not create group");
  const Capabilities capabilities = AskCapabilities(*objBridge_, source);
  docSrc_ = OpenIn(grpSrc_, source, capabilities.openMode);
  if (docSrc_ == nullptr) {
    RaiseOwn(QBL_LText("QB.QBTRANSLAT.CEDITOR.000.OPENFORTRANSLAT001864.T.00003|Could not open original "
                       "document '") +
             source + "'");
  }
  ConnectSource();
  const bool opened = Attempt([&] {
    OpenTranslation(translation, loio.isReadOnly() ? capabilities.openMode : bridge_mode::kWritable);
  });
  WriteTitle(loio);
  Err.Clear();
  if (docDst_ == nullptr || !opened) RaiseOwn("Could not open destination document '" + translation + "'");
  if (!single && grpDst_ != nullptr) {
    if (capabilities.arrange3) {
      grpDst_->Arrange(3);
    } else if (capabilities.arrange2) {
      grpDst_->Arrange(2);
    }
  }
  bIsOpen_ = true;
}

std::int32_t CEditor::CountOpenDocuments(bool single, const std::string& source,
                                         const std::string& translation) {
  std::int32_t count = 0;
  // A failure means that there is no such group.
  Attempt([&] { count = DocumentsOfGroup(objBridge_, translation); });
  if (single) Attempt([&] { count += DocumentsOfGroup(objSecondBridge_, source); });
  Err.Clear();
  return count;
}

void CEditor::OpenTranslation(const std::string& translation, std::int32_t mode) {
  docDst_ = OpenIn(grpDst_, translation, mode);
  if (docDst_ != nullptr) ConnectTranslation();
}

void CEditor::WriteTitle(const CLoioEntry& loio) {
  const std::string title = loio.GetTitle(role::kDstCurr);
  const bool askable = docDst_ != nullptr && gLoios != nullptr;
  std::string application;
  if (askable && loio.hasTitleProperty() && loio.hasTitleToSet()) {
    Attempt([&] { application = Existing(docDst_->Application()).TextProperty("Name"); });
  }
  if (application != "Microsoft Word" && application != "Microsoft PowerPoint") {
    Trace(askable ? 2 : 3, kModule, "OpenForTranslation",
          "Attention: Couldn't write title '{}' to the document custom poperties", title);
    return;
  }
  Attempt([&] { Existing(Existing(docDst_->CustomProperties()).Item("Title")).Value(title); });
}

void CEditor::ConnectTranslation() {
  const auto connect = [this](void (CEditor::*handler)()) {
    return [session = weak_from_this(), handler] {
      if (const auto alive = session.lock()) (alive.get()->*handler)();
    };
  };
  docDst_->OnPostClose = connect(&CEditor::docDst_OnPostClose);
  docDst_->OnPostLocalSave = connect(&CEditor::docDst_OnPostLocalSave);
}

void CEditor::ConnectSource() {
  docSrc_->OnPostClose = [session = weak_from_this()] {
    if (const auto alive = session.lock()) alive->docSrc_OnPostClose();
  };
}

void CEditor::ForgetBridge() {
  grpDst_.reset();
  grpSrc_.reset();
  objBridge_.reset();
  objSecondBridge_.reset();
  Empty(docDst_);
  Empty(docSrc_);
  dstClosed_ = false;
  srcClosed_ = false;
}

void CEditor::CloseGroups(bool single) {
  if (single) CloseIfNotEmpty(grpSrc_);
  grpSrc_.reset();
  CloseIfNotEmpty(grpDst_);
  grpDst_.reset();
}

bool CEditor::HoldsBack(bool& closed) const {
  closed = busy_;
  return busy_;
}

void CEditor::TakeHeldCloses() {
  if (std::exchange(srcClosed_, false)) docSrc_OnPostClose();
  if (std::exchange(dstClosed_, false)) docDst_OnPostClose();
}

void CEditor::docDst_OnPostClose() {
  if (HoldsBack(dstClosed_)) return;
  const TracedProcedure traced(kModule, "docDst_OnPostClose");
  const bool old = IsVisio11Running();
  const TimersOff timersOff;
  Empty(docDst_);
  --gVisioWindows;
  const auto loio = gLoios->Item(strLOIOGUID_);
  if (!old) CloseGroups(loio->hasSingleDocEditor());
  loio->CloseTransition();
  bIsOpen_ = false;
  if (!old) RaiseOnClose();
}

void CEditor::docDst_OnPostLocalSave() {
  const TracedProcedure traced(kModule, "docDst_OnPostLocalSave");
  const TimersOff timersOff;
  const bool outermost = !std::exchange(busy_, true);
  std::exception_ptr failure;
  try {
    DoSave();
  } catch (const std::exception&) {
    failure = std::current_exception();
  }
  if (outermost) {
    busy_ = false;
    TakeHeldCloses();
  }
  if (failure != nullptr) std::rethrow_exception(failure);
}

void CEditor::docSrc_OnPostClose() {
  if (HoldsBack(srcClosed_)) return;
  const TracedProcedure traced(kModule, "docSrc_OnPostClose ");  // the blank stays
  const TimersOff timersOff;
  Empty(docSrc_);
  --gVisioWindows;
  if (IsVisio11Running()) {
    bIsOpen_ = false;
    return;
  }
  // The close of the group closes the translation, whose own event makes the transition.
  CloseGroups(gLoios->Item(strLOIOGUID_)->hasSingleDocEditor());
  bIsOpen_ = false;
  RaiseOnClose();
  bIsOpen_ = false;
}

}  // namespace qb
