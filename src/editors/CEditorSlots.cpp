#include "editors/CEditorSlots.h"

#include <array>

#include "editors/EditorState.h"
#include "foundation/CTrace.h"
#include "foundation/Product.h"
#include "foundation/modMultiLanguage.h"
#include "model/CPxfFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"

namespace qb {

std::shared_ptr<CEditorSlots> gEditorSlots;

namespace {
constexpr std::string_view kModule = "CEditorSlots";
}  // namespace

CEditorSlots::~CEditorSlots() {
  const TracedProcedure traced(kModule, "Class_Terminate");
  // A session whose document is gone with its package has nothing left to close.
  if (!Attempt([this] { CloseAllSlots(true); })) TracePendingError(kModule, "Class_Terminate");
  Err.Clear();
}

bool CEditorSlots::OpenSlot(std::string_view strLOIOGUID) {
  const TracedProcedure traced(kModule, "OpenSlot");
  struct Place {
    Slot& slot;
    void (CEditorSlots::*onClose)();
  };
  const std::array<Place, 3> places{{{objEditorSlot1_, &CEditorSlots::objEditorSlot1_OnClose},
                                     {objEditorSlot2_, &CEditorSlots::objEditorSlot2_OnClose},
                                     {objEditorSlot3_, &CEditorSlots::objEditorSlot3_OnClose}}};
  for (const Place& place : places) {
    if (place.slot != nullptr) continue;
    const auto session = std::make_shared<CEditor>();
    session->OnClose = [this, onClose = place.onClose] { (this->*onClose)(); };
    place.slot = session;
    const bool open = session->OpenForTranslation(strLOIOGUID);
    if (!open) place.slot.reset();
    return open;
  }
  MsgBox(QBL_LText("QB.QBTRANSLAT.CEDITORSLOTS.000.OPENSLOT.T.00001|no slot available!"));
  return false;
}

bool CEditorSlots::CloseSession(Slot& slot) {
  const Slot session = slot;  // keeps it alive while its slot is emptied under it
  const bool closed = session->CloseEditor();
  if (closed) slot.reset();
  return closed;
}

bool CEditorSlots::CloseSlot(std::string_view strLOIOGUID) {
  const TracedProcedure traced(kModule, "CloseSlot");
  for (Slot* slot : {&objEditorSlot1_, &objEditorSlot2_, &objEditorSlot3_}) {
    if (*slot == nullptr) throw RuntimeError(failure::kObjectNotSet);  // no slot is tested for being empty
    if ((*slot)->LOIOGUID() == strLOIOGUID) return CloseSession(*slot);
  }
  return false;
}

bool CEditorSlots::CloseAllSlots(bool bForce) {
  const TracedProcedure traced(kModule, "CloseAllSlots");
  bool failed = false;
  for (Slot* slot : {&objEditorSlot1_, &objEditorSlot2_, &objEditorSlot3_}) {
    if (*slot == nullptr) continue;
    if (!CloseSession(*slot)) failed = true;
    if (bForce) slot->reset();
  }
  return !failed;
}

void CEditorSlots::CheckSlot(Slot& slot, bool keep, bool& noneOpen) {
  if (slot == nullptr) return;
  const Slot session = slot;  // keeps it alive while its slot is emptied under it
  if (session->IsOpen()) {
    noneOpen = false;
    return;
  }
  if (!keep) slot.reset();
  UpdateAll();
}

bool CEditorSlots::CheckSlots() {
  const bool keep = gVisioWindows > 0;
  bool noneOpen = true;
  CheckSlot(objEditorSlot1_, keep, noneOpen);
  CheckSlot(objEditorSlot2_, keep, noneOpen);
  CheckSlot(objEditorSlot3_, keep, noneOpen);
  return noneOpen;
}

void CEditorSlots::UpdateAll() {
  const auto loios = gLoios;
  if (loios == nullptr) return;
  const ProfileBatch oneFlush(*ThePlatform().profiles,
                              gPxfFile != nullptr ? gPxfFile->strFileName : std::string());
  for (std::size_t i = 1; i <= loios->Count(); ++i) loios->Item(i)->Update();
}

void CEditorSlots::objEditorSlot1_OnClose() {
  const TracedProcedure traced(kModule, "objEditorSlot1_OnClose");
  objEditorSlot1_.reset();
}

void CEditorSlots::objEditorSlot2_OnClose() {
  const TracedProcedure traced(kModule, "objEditorSlot2_OnClose");
  objEditorSlot2_.reset();
}

void CEditorSlots::objEditorSlot3_OnClose() {
  const TracedProcedure traced(kModule, "objEditorSlot3_OnClose");
  objEditorSlot3_.reset();
}

}  // namespace qb
