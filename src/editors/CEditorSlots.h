#pragma once

#include <memory>
#include <string_view>

#include "editors/CEditor.h"

namespace qb {

/// The three places for documents that are out in external editors.
class CEditorSlots {
 public:
  CEditorSlots() = default;
  CEditorSlots(const CEditorSlots&) = delete;
  CEditorSlots& operator=(const CEditorSlots&) = delete;
  /// Closes all slots by force.
  ~CEditorSlots();

  /// Opens a document in the first free slot. True if it is open there.
  bool OpenSlot(std::string_view strLOIOGUID);
  /// Closes the slot of a document. Raises 91 if an empty slot stands before it.
  bool CloseSlot(std::string_view strLOIOGUID);
  /// True if all sessions closed. By force all slots end empty all the same.
  bool CloseAllSlots(bool bForce);
  /// Notices editors that have gone. True if no session is open.
  bool CheckSlots();
  /// Writes and repaints every document.
  void UpdateAll();

  void objEditorSlot1_OnClose();
  void objEditorSlot2_OnClose();
  void objEditorSlot3_OnClose();

 private:
  using Slot = std::shared_ptr<CEditor>;
  void CheckSlot(Slot& slot, bool keep, bool& noneOpen);
  static bool CloseSession(Slot& slot);

  Slot objEditorSlot3_;
  Slot objEditorSlot1_;
  Slot objEditorSlot2_;
};

/// The slots of the open package; absent until one is loaded.
extern std::shared_ptr<CEditorSlots> gEditorSlots;

}  // namespace qb
