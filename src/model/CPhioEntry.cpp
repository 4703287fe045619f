#include "model/CPhioEntry.h"

#include <algorithm>
#include <array>

#include "foundation/CTrace.h"
#include "model/CPxfFile.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "CPhioEntry";
constexpr std::string_view kTitleProperty = "DESCRIPTION";
constexpr std::array<std::string_view, 4> kRoles{"DST_CURR", "SRC_CURR", "SRC_PREV", "DST_PREV"};

/// The first property that holds a title; null if there is none.
CProperty* FindTitle(CProperties& properties) {
  for (std::size_t i = 1; i <= properties.Count(); ++i) {
    CProperty& property = properties.Item(i);
    if (property.Name == kTitleProperty) return &property;
  }
  return nullptr;
}

CProperties& Require(const std::shared_ptr<CProperties>& properties) {
  if (properties == nullptr) throw RuntimeError(failure::kObjectNotSet);
  return *properties;
}

}  // namespace

bool CPhioEntry::Init(std::int32_t nlPHIO, std::string_view nstrRole, std::string_view nstrPHIO_GUID,
                      std::string_view nstrPHIO_CLASS, std::string_view nstrDocumentFormat,
                      std::string_view nstrDescription, std::string_view nstrPath, std::string_view nstrState,
                      std::shared_ptr<CHyperlinks> nHyperlinks, std::shared_ptr<CProperties> nProperties) {
  const auto known = std::find(kRoles.begin(), kRoles.end(), nstrRole);
  if (known == kRoles.end()) return false;
  erRole = static_cast<std::int32_t>(known - kRoles.begin());
  number_ = nlPHIO;
  guid_ = nstrPHIO_GUID;
  class_ = nstrPHIO_CLASS;
  documentFormat_ = nstrDocumentFormat;
  description_ = nstrDescription;
  path_ = nstrPath;
  state_ = nstrState;
  hyperlinks_ = std::move(nHyperlinks);
  properties_ = std::move(nProperties);
  return true;
}

void CPhioEntry::SaveState(std::int32_t lLOIO) const {
  ThePxfFile().SavePHIOState(lLOIO, number_, state_);
}

std::string CPhioEntry::GetTitle() const {
  if (!description_.empty()) return description_;
  // Without a property list the title is empty, so that a document with a bad list can still be shown.
  const CProperty* title = properties_ == nullptr ? nullptr : FindTitle(*properties_);
  return title == nullptr ? std::string() : title->Value;
}

bool CPhioEntry::HasTitleProperty() const {
  return properties_ != nullptr && FindTitle(*properties_) != nullptr;
}

bool CPhioEntry::SetTitle(std::int32_t lLOIO, std::string_view nstrTitle) {
  Trace(2, kModule, "SetTitle", "->");
  Trace(3, kModule, "SetTitle", "nstrTitle: '{}'", nstrTitle);
  CProperties& properties = Require(properties_);
  CProperty* title = FindTitle(properties);
  if (title == nullptr) {
    // Reaches the package only with a later write of the properties: stays so.
    properties.Add(kTitleProperty, nstrTitle, {}, {});
    Trace(3, kModule, "SetTitle", "nstrTitle: '{}'", nstrTitle);
    Trace(2, kModule, "SetTitle", "<-");
    return true;
  }
  title->Value = nstrTitle;
  const bool written = ThePxfFile().WritePHIOProperties(lLOIO, number_, properties);
  Trace(3, kModule, "SetTitle", "SetTitle: '{}'", BooleanText(written));
  Trace(2, kModule, "SetTitle", "1 <-");
  return written;
}

bool CPhioEntry::SaveTitle(std::int32_t lLOIO) const {
  CPxfFile& package = ThePxfFile();
  const bool written = package.WritePHIOProperties(lLOIO, number_, Require(properties_));
  const bool sizeWritten = package.UpdateFileSize();
  return !(written && sizeWritten);
}

std::shared_ptr<CHyperlinks> CPhioEntry::Hyperlinks() {
  if (hyperlinks_ == nullptr) hyperlinks_ = std::make_shared<CHyperlinks>();
  return hyperlinks_;
}

std::shared_ptr<CPhioFile> CPhioEntry::Add(std::string_view FileName, std::string_view FileFormat,
                                           std::string_view ShortName, std::string_view key) {
  auto file = std::make_shared<CPhioFile>();
  file->FileName = FileName;
  file->FileFormat = FileFormat;
  file->ShortName = ShortName;
  Components.Add(file, key);
  return file;
}

std::string CPhioEntry::GetPRIMFileName() const {
  for (std::size_t i = 1; i <= Components.Count(); ++i) {
    const auto& file = Components.Item(i);
    if (file->FileFormat == kPrimaryFormat) return file->FileName;
  }
  return Components.Item(1)->FileName;
}

std::shared_ptr<CPhioFile> CPhioEntry::GetFile(std::string_view FileName) const {
  for (std::size_t i = 1; i <= Components.Count(); ++i) {
    const auto& file = Components.Item(i);
    if (file->FileName == FileName) return file;
  }
  return nullptr;
}

}  // namespace qb
