// The component files of a document's translation.

#include "foundation/gRvdFile.h"
#include "model/CLoioEntry.h"
#include "model/CPxfFile.h"
#include "model/LoioTree.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::string_view kUnknownTime = "00000000000000";

/// Gives a file's node the image of a primary file or of an ordinary one.
void SetFileImage(std::string_view loioKey, std::string_view fileName, int image) {
  TreeNode& node = PackageTree().Nodes(FileNodeKey(loioKey, fileName));
  node.SetImage(image);
  node.SetExpandedImage(image);
}

/// Position of the first file of this name; 0 if there is none.
std::size_t PositionOf(const CPhioEntry& phio, std::string_view fileName) {
  for (std::size_t i = 1; i <= phio.Components.Count(); ++i) {
    if (phio.Components.Item(i)->FileName == fileName) return i;
  }
  return 0;
}

}  // namespace

std::shared_ptr<CPhioFile> CLoioEntry::GetDstFile(std::string_view strFileName) const {
  const auto phio = FirstPhio(role::kDstCurr);
  return phio == nullptr ? nullptr : phio->GetFile(strFileName);
}

std::string CLoioEntry::GetDstPath() const {
  const auto phio = FirstPhio(role::kDstCurr);
  return phio == nullptr ? std::string() : phio->GetPath();
}

std::string CLoioEntry::GetTranslationFileName() const {
  const auto phio = FirstPhio(role::kDstCurr);
  if (phio == nullptr) throw RuntimeError(failure::kObjectNotSet);
  return JoinFile(phio->GetPath(), phio->GetPRIMFileName());
}

std::string CLoioEntry::GetSourceFileName() const {
  // The first of the two roles in the order of the package, not always SRC_CURR: stays so.
  for (const auto& phio : phios_) {
    const bool source = phio->erRole == role::kSrcCurr || phio->erRole == role::kSrcPrev;
    if (source && phio->Components.Count() > 0) return JoinFile(phio->GetPath(), phio->GetPRIMFileName());
  }
  return {};
}

std::string CLoioEntry::GetTimeStamp() const {
  const auto phio = FirstPhio(role::kDstCurr);
  if (phio == nullptr) return std::string(kUnknownTime);
  CPxfFile& package = ThePxfFile();
  const std::string folder = JoinFile(package.GetPxfPath(), phio->GetPath());
  return package.GetLoioTimeStamp(number_, JoinFile(folder, phio->GetPRIMFileName()));
}

bool CLoioEntry::IsDstFile(std::string_view strFileName) const {
  const std::string name = FileNameOf(strFileName);
  for (const auto& phio : phios_) {
    if (phio->erRole != role::kDstCurr) continue;
    for (std::size_t i = 1; i <= phio->Components.Count(); ++i) {
      if (FileNameOf(phio->Components.Item(i)->FileName) == name) return true;
    }
  }
  return false;
}

bool CLoioEntry::AddDstFile(std::string_view strNewFileName, std::string_view myKey) {
  const auto phio = FirstPhio(role::kDstCurr);
  if (phio == nullptr || phio->GetFile(strNewFileName) != nullptr) return false;
  TreeNode& node = PackageTree().Nodes(myKey);
  TreeNode* parent = node.Parent();
  if (parent == nullptr) throw RuntimeError(failure::kObjectNotSet);
  if (parent->Key() == kRootKey) parent = &node;
  phio->Add(strNewFileName, {}, {}, {});
  PackageTree().AddEx(parent, TableTree::kChild, FileNodeKey(parent->Key(), strNewFileName), strNewFileName,
                      kFileImage, -1, 0);
  return true;
}

bool CLoioEntry::MarkDstFileAsPrimary(std::string_view strNewFileName) {
  const auto phio = FirstPhio(role::kDstCurr);
  if (phio == nullptr) return false;
  const std::string name = FileNameOf(strNewFileName);
  auto& files = phio->Components;
  std::vector<std::shared_ptr<CPhioFile>> ordered;
  for (std::size_t i = 1; i <= files.Count(); ++i) {
    const auto& file = files.Item(i);
    if (FileNameOf(file->FileName) == name) {
      file->FileFormat = kPrimaryFormat;
      ordered.push_back(file);
      SetFileImage(guid_, file->FileName, kPrimaryImage);
    } else if (file->FileFormat == kPrimaryFormat) {
      file->FileFormat.clear();
      SetFileImage(guid_, file->FileName, kFileImage);
    }
  }
  if (ordered.empty()) return false;  // with the old primary file already demoted: stays so
  for (std::size_t i = 1; i <= files.Count(); ++i) {
    if (files.Item(i)->FileFormat != kPrimaryFormat) ordered.push_back(files.Item(i));
  }
  files.Clear();
  for (const auto& file : ordered) phio->Add(file->FileName, file->FileFormat, file->ShortName, {});
  return ThePxfFile().SavePhioFiles(number_, *phio);
}

bool CLoioEntry::SavePhioFiles(std::int32_t eRole) {
  const auto phio = FirstPhio(eRole);
  if (phio == nullptr) return true;
  const bool saved = ThePxfFile().SavePhioFiles(number_, *phio);
  UpdateView();
  return saved;
}

bool CLoioEntry::RemoveAllDstFiles() {
  const auto phio = FirstPhio(role::kDstCurr);
  if (phio == nullptr) return false;
  while (phio->Components.Count() > 0) {
    phio->Components.Remove(1);
    PackageTree().RemoveNode(1);  // a fixed number and not the file's node: stays so
  }
  SavePhioFiles(role::kDstCurr);
  return true;
}

bool CLoioEntry::RemoveDstFile(std::string_view strDstFileName) {
  const std::string name = FileNameOf(strDstFileName);
  for (const auto& phio : phios_) {
    const std::size_t position = phio->erRole == role::kDstCurr ? PositionOf(*phio, name) : 0;
    if (position == 0) continue;
    phio->Components.Remove(position);
    SavePhioFiles(role::kDstCurr);
    const TreeNode* selected = PackageTree().SelectedItem();
    if (selected == nullptr) throw RuntimeError(failure::kObjectNotSet);
    PackageTree().RemoveNode(std::string(selected->Key()));
    return true;
  }
  return false;
}

}  // namespace qb
