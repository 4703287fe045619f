#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qb {

/// The translation state of one document: content and title, each unchanged or changed, open or closed.
/// Commands and editors move a document only through the transitions; one that is not allowed changes nothing
/// and is false.
class CState {
 public:
  /// Sets the state from its persisted name; an unknown name gives DUMMY.
  void InternalizeState(std::string_view strNewState);
  /// Sets the state from the state word of a PHIO; an unknown word gives DUMMY.
  void SetStateFromDstCurr(std::string_view strNewState);
  /// The state word for the DST_CURR PHIO.
  std::string GetDstCurrState() const;
  /// The persisted name.
  std::string ExternalizeState() const;

  bool OpenTransition();            ///< the package was opened: takes open marks back
  bool CloseTransition();           ///< the editor was closed
  bool SaveTransition();            ///< the editor saved
  bool BackInProgressTransition();  ///< the document is put back in progress
  bool UnchangedTransition();       ///< the user marks it "to be translated"
  bool CancelTransition();          ///< the edit was cancelled
  bool BothEditTransition();        ///< content and title go into an editor
  bool ContentEditTransition();     ///< the content goes into an editor
  bool TitleEditTransition();       ///< the title goes into an editor
  bool CompleteTransition();        ///< the user marks it complete
  bool ChangedTransition();         ///< the user marks it in progress

  bool isReadOnly() const;
  bool IsOpen() const;
  bool isChanged() const;
  bool isCompleted() const;
  bool isUnchanged() const;

  /// Number of the state, 0 to 15.
  std::int32_t myState = 0;
};

}  // namespace qb
