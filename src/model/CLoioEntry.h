#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/CPhioEntry.h"
#include "model/CState.h"
#include "runtime/Collection.h"

namespace qb {

using PhioList = std::vector<std::shared_ptr<CPhioEntry>>;

/// One document of the package. Every state change is written to the package file and shown in both views.
/// `eRole` is a role number.
class CLoioEntry : public std::enable_shared_from_this<CLoioEntry> {
 public:
  /// Takes its data and adds itself to `gLoios` under its GUID; a doubled one is reported.
  void Init(std::string_view nstrTechnicalName, std::string_view nstrEditProcess,
            std::string_view nstrLOIO_GUID, std::string_view nstrLOIO_CLASS, std::int32_t nlLOIO,
            std::int32_t nlMasterDoc, std::int32_t nlSubDoc, std::int32_t nlSlide,
            std::shared_ptr<CState> ncstate, PhioList colSetPhios);

  const SharedText& Key() const { return guid_; }
  bool isReadOnly() const { return state->isReadOnly(); }
  bool SetTitle(std::string_view nstrTitle);
  std::string GetTitle(std::int32_t eRole) const;
  std::string GetPhioDocumentFormat(std::int32_t eRole) const;
  std::string GetTimeStamp() const;
  std::string GetDocumentFormat() const;
  bool SaveTitle(std::string_view strNewTitle);
  /// Writes the state to the package.
  void SavePLState();
  /// The DST_CURR PHIO; failing that, if `blnBestPhio`, the SRC_CURR one; else nothing.
  std::shared_ptr<CPhioEntry> GetPhio(bool blnBestPhio) const;
  std::shared_ptr<CPhioFile> GetDstFile(std::string_view strFileName) const;
  std::string GetDstPath() const;
  /// Adds a component file and its tree node; `myKey` is the key of the document's node or of one of its
  /// files. False without a DST_CURR PHIO, and for a file that is listed already: a package that lists one
  /// twice could not be loaded again.
  bool AddDstFile(std::string_view strNewFileName, std::string_view myKey);
  bool MarkDstFileAsPrimary(std::string_view strNewFileName);
  bool IsDstFile(std::string_view strFileName) const;
  bool SavePhioFiles(std::int32_t eRole);
  bool RemoveAllDstFiles();
  bool RemoveDstFile(std::string_view strDstFileName);
  /// Path of the translation's primary file in the package; raises 91 without a DST_CURR PHIO.
  std::string GetTranslationFileName() const;
  /// Path of the source's primary file in the package; empty if there is none.
  std::string GetSourceFileName() const;

  const SharedText& TechnicalName() const { return technicalName_; }
  const SharedText& EditProcess() const { return editProcess_; }
  std::int32_t LoioNo() const { return number_; }
  std::int32_t MasterDocumentNo() const { return masterDocument_; }
  std::int32_t SubdocumentNo() const { return subdocument_; }
  std::int32_t SlideNo() const { return slide_; }
  const SharedText& LOIO_GUID() const { return guid_; }
  const PhioList& PHIOs() const { return phios_; }
  bool hasDocumentBridge() const { return hasDocumentBridge_; }
  bool hasHTMLEditor() const { return hasHTMLEditor_; }
  bool hasNotePad() const { return hasNotePad_; }
  bool hasTitleProperty() const { return hasTitleProperty_; }
  bool hasTradosSupport() const { return hasTradosSupport_; }
  bool hasTitleToSet() const { return hasTitleToSet_; }
  bool hasHyperlink() const { return hasHyperlink_; }
  bool hasSingleDocEditor() const { return hasSingleDocEditor_; }

  bool OpenTransition();
  bool SaveTransition();
  bool CancelTransition();
  bool CloseTransition();
  bool TitleEditTransition();
  bool ChangedTransition();
  bool UnchangedTransition();
  bool ContentEditTransition();
  bool CompleteTransition();

  /// Recomputes the capabilities, writes the state and repaints.
  void Update();
  /// Brings the tree and the list in line with the document.
  bool UpdateView();
  /// Position of the state's icon in the window's image list.
  std::int32_t GetStateIcon() const;

  std::shared_ptr<CState> state = std::make_shared<CState>();

 private:
  std::shared_ptr<CPhioEntry> FirstPhio(std::int32_t eRole) const;
  bool Transition(bool (CState::*transition)());
  void UpdateCapabilities();

  std::int32_t number_ = 0;
  PhioList phios_;
  SharedText technicalName_;
  SharedText editProcess_;
  std::int32_t masterDocument_ = 0;
  std::int32_t subdocument_ = 0;
  std::int32_t slide_ = 0;
  SharedText guid_;
  SharedText class_;
  bool hasDocumentBridge_ = false;
  bool hasHTMLEditor_ = false;
  bool hasNotePad_ = false;
  bool hasTitleProperty_ = false;
  bool hasTradosSupport_ = false;
  bool hasTitleToSet_ = false;
  bool hasHyperlink_ = false;
  bool hasSingleDocEditor_ = false;
};

/// All documents of the open package by key; absent until a package is loaded.
extern std::shared_ptr<Collection<std::shared_ptr<CLoioEntry>>> gLoios;

/// Takes away the tree nodes of files that a document no longer lists. A selection among them goes to the
/// document.
void RemoveGoneFileNodes(const CLoioEntry& loio);

/// Shows or hides the `.ttx` companions of a document's files as third level of the tree.
void UpdateTtxNodes(std::string_view key);

}  // namespace qb
