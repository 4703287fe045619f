#include "model/CLoioEntry.h"

#include <algorithm>

#include "foundation/CTrace.h"
#include "foundation/gRvdError.h"
#include "foundation/gRvdFile.h"
#include "model/CPxfFile.h"
#include "model/LoioCapabilities.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"

namespace qb {

std::shared_ptr<Collection<std::shared_ptr<CLoioEntry>>> gLoios;

namespace {

constexpr std::string_view kModule = "CLoioEntry";

}  // namespace

std::shared_ptr<CPhioEntry> CLoioEntry::FirstPhio(std::int32_t eRole) const {
  const auto found =
      std::find_if(phios_.begin(), phios_.end(), [eRole](const auto& phio) { return phio->erRole == eRole; });
  return found == phios_.end() ? nullptr : *found;
}

void CLoioEntry::Init(std::string_view nstrTechnicalName, std::string_view nstrEditProcess,
                      std::string_view nstrLOIO_GUID, std::string_view nstrLOIO_CLASS, std::int32_t nlLOIO,
                      std::int32_t nlMasterDoc, std::int32_t nlSubDoc, std::int32_t nlSlide,
                      std::shared_ptr<CState> ncstate, PhioList colSetPhios) {
  const bool done = Attempt([&] {
    technicalName_ = nstrTechnicalName;
    editProcess_ = nstrEditProcess;
    guid_ = nstrLOIO_GUID;
    class_ = nstrLOIO_CLASS;
    number_ = nlLOIO;
    masterDocument_ = nlMasterDoc;
    subdocument_ = nlSubDoc;
    slide_ = nlSlide;
    state = std::move(ncstate);
    phios_ = std::move(colSetPhios);
    UpdateCapabilities();
    if (gLoios == nullptr) throw RuntimeError(failure::kObjectNotSet);
    gLoios->Add(shared_from_this(), guid_);
  });
  if (done) return;
  TracePendingError(kModule, "Init");
  gRvdError(kModule, "Init");
}

void CLoioEntry::UpdateCapabilities() {
  const LoioCapabilities capabilities = CapabilitiesOf(editProcess_, GetDocumentFormat());
  hasDocumentBridge_ = capabilities.documentBridge;
  hasHTMLEditor_ = capabilities.htmlEditor;
  hasNotePad_ = capabilities.notePad;
  hasTitleProperty_ = capabilities.titleProperty;
  hasTradosSupport_ = capabilities.tradosSupport;
  hasTitleToSet_ = capabilities.titleToSet;
  hasHyperlink_ = capabilities.hyperlink;
  hasSingleDocEditor_ = capabilities.singleDocEditor;
}

std::string CLoioEntry::GetTitle(std::int32_t eRole) const {
  const auto phio = FirstPhio(eRole);
  return phio == nullptr ? std::string() : phio->GetTitle();
}

std::string CLoioEntry::GetPhioDocumentFormat(std::int32_t eRole) const {
  const auto phio = FirstPhio(eRole);
  return phio == nullptr ? std::string() : phio->GetDocumentFormat();
}

std::string CLoioEntry::GetDocumentFormat() const {
  for (const std::int32_t eRole : {role::kDstCurr, role::kSrcCurr, role::kSrcPrev, role::kDstPrev}) {
    std::string format = GetPhioDocumentFormat(eRole);
    if (!format.empty()) return format;
  }
  return {};
}

std::shared_ptr<CPhioEntry> CLoioEntry::GetPhio(bool blnBestPhio) const {
  auto phio = FirstPhio(role::kDstCurr);
  return phio == nullptr && blnBestPhio ? FirstPhio(role::kSrcCurr) : phio;
}

bool CLoioEntry::SetTitle(std::string_view nstrTitle) {
  const auto phio = FirstPhio(role::kDstCurr);
  return phio != nullptr && phio->SetTitle(number_, nstrTitle);
}

bool CLoioEntry::SaveTitle(std::string_view strNewTitle) {
  const auto phio = FirstPhio(role::kDstCurr);
  return phio == nullptr || phio->SetTitle(number_, strNewTitle);
}

void CLoioEntry::SavePLState() {
  CPxfFile& package = ThePxfFile();
  const ProfileBatch oneFlush(*ThePlatform().profiles, package.strFileName);
  if (const auto phio = FirstPhio(role::kDstCurr); phio != nullptr) {
    phio->SetState(state->GetDstCurrState());
    phio->SaveState(number_);
  }
  package.SaveLOIOState(number_, state->ExternalizeState());
  package.UpdateFileSize();
}

bool CLoioEntry::Transition(bool (CState::*transition)()) {
  const bool allowed = ((*state).*transition)();
  if (allowed) {
    SavePLState();
    UpdateCapabilities();
    UpdateView();
  }
  return allowed;
}

bool CLoioEntry::OpenTransition() {
  return Transition(&CState::OpenTransition);
}

bool CLoioEntry::SaveTransition() {
  return Transition(&CState::SaveTransition);
}

bool CLoioEntry::CancelTransition() {
  return Transition(&CState::CancelTransition);
}

bool CLoioEntry::CloseTransition() {
  return Transition(&CState::CloseTransition);
}

bool CLoioEntry::TitleEditTransition() {
  return Transition(&CState::TitleEditTransition);
}

bool CLoioEntry::ChangedTransition() {
  return Transition(&CState::ChangedTransition);
}

bool CLoioEntry::UnchangedTransition() {
  return Transition(&CState::UnchangedTransition);
}

bool CLoioEntry::ContentEditTransition() {
  return Transition(&CState::ContentEditTransition);
}

bool CLoioEntry::CompleteTransition() {
  return Transition(&CState::CompleteTransition);
}

void CLoioEntry::Update() {
  UpdateCapabilities();
  SavePLState();
  UpdateView();
}

}  // namespace qb
