// What the tree and the list show of a document.

#include "foundation/gRvdFile.h"
#include "model/CLoioEntry.h"
#include "model/CPxfFile.h"
#include "model/LoioTree.h"
#include "runtime/RuntimeError.h"
#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"

namespace qb {
namespace {

constexpr std::string_view kCompanionExtension = ".ttx";
constexpr int kOrdinaryFiles = 0;

std::string Companion(std::string_view name) {
  std::string companion(name);
  return companion += kCompanionExtension;
}

/// The folder of a version's files, with the separator behind it.
std::string FolderOf(const CPhioEntry& phio) {
  std::string folder = ThePxfFile().GetPxfPath();
  return folder.append("\\").append(phio.GetPath()).append("\\");
}

bool CompanionExists(const std::string& folder, std::string_view fileName) {
  return FileExists(folder + Companion(fileName), kOrdinaryFiles);
}

/// Brings the companion node of one file in line with the disk. True if the node was there before.
bool UpdateTtxNode(TreeNode& loioNode, const std::string& folder, std::string_view fileName) {
  TableTree& tree = PackageTree();
  const std::string fileKey = FileNodeKey(loioNode.Key(), fileName);
  TreeNode* fileNode = tree.FindNode(fileKey);
  if (fileNode == nullptr || fileNode->Parent() != &loioNode) return false;
  const std::string companionKey = Companion(fileKey);
  const TreeNode* companionNode = tree.FindNode(companionKey);
  const bool found = companionNode != nullptr && companionNode->Parent() == fileNode;
  const bool exists = CompanionExists(folder, fileName);
  if (exists && !found) {
    tree.AddEx(fileNode, TableTree::kChild, companionKey, Companion(fileName), kFileImage, kFileImage,
               kFileImage);
    loioNode.SetExpanded(false);
  }
  if (!exists && found) tree.RemoveNode(companionKey);
  return found;
}

}  // namespace

TableTree& PackageTree() {
  return Default<frmQBTranslator>().TransPackTree;
}

std::string FileNodeKey(std::string_view loioKey, std::string_view fileName) {
  std::string key;
  key.reserve(loioKey.size() + 1 + fileName.size() + kCompanionExtension.size());
  return key.append(loioKey).append("_").append(fileName);
}

bool CompanionSearch::MayHoldAny(const std::string& folder) {
  const auto known = folders_.find(folder);
  if (known != folders_.end()) return known->second;
  return folders_.emplace(folder, FileExists(folder + Companion("*"), kOrdinaryFiles)).first->second;
}

bool CompanionSearch::Finds(const CLoioEntry& loio, std::string_view fileName) {
  const bool liesElsewhere = fileName.find_first_of("\\/") != std::string_view::npos;
  for (const auto& phio : loio.PHIOs()) {
    if (phio->erRole != role::kDstCurr) continue;
    const std::string folder = FolderOf(*phio);
    if ((liesElsewhere || MayHoldAny(folder)) && CompanionExists(folder, fileName)) return true;
  }
  return false;
}

void UpdateTtxNodes(std::string_view key) {
  const auto loio = gLoios->Item(key);
  TreeNode& loioNode = PackageTree().Nodes(loio->Key());
  for (const auto& phio : loio->PHIOs()) {
    if (phio->erRole != role::kDstCurr) continue;
    const std::string folder = FolderOf(*phio);
    for (std::size_t i = 1; i <= phio->Components.Count(); ++i) {
      // The first file whose companion is already shown ends it, the files behind it being left alone: stays
      // so.
      if (UpdateTtxNode(loioNode, folder, phio->Components.Item(i)->FileName)) return;
    }
  }
}

void RemoveGoneFileNodes(const CLoioEntry& loio) {
  if (loio.GetPhio(false) == nullptr) return;
  TableTree& tree = PackageTree();
  TreeNode& loioNode = tree.Nodes(loio.Key());
  std::vector<std::string> gone;
  for (const auto& child : loioNode.Children()) {
    if (loio.GetDstFile(child->Text()) == nullptr) gone.push_back(child->Key());
  }
  for (const std::string& key : gone) {
    const TreeNode* selected = tree.SelectedItem();
    const TreeNode& node = tree.Nodes(key);
    if (selected == &node || (selected != nullptr && selected->Parent() == &node)) tree.Select(&loioNode);
    tree.RemoveNode(key);
  }
}

bool CLoioEntry::UpdateView() {
  auto& window = Default<frmQBTranslator>();
  TreeNode& node = window.TransPackTree.Nodes(guid_);
  const int icon = GetStateIcon();
  node.SetImage(icon);
  node.SetText(gLoios->Item(guid_)->GetTitle(role::kDstCurr));
  node.SetTitle(technicalName_);
  UpdateTtxNodes(guid_);
  ListRow& row = window.lvInfoObjectList.Rows(guid_);
  row.SetSubItems(2, state == nullptr ? std::string() : state->ExternalizeState());
  row.SetSmallIcon(icon);
  node.SetExpandedImage(icon);
  return true;
}

std::int32_t CLoioEntry::GetStateIcon() const {
  constexpr std::int32_t kNone = 8;
  if (state == nullptr) return kNone;
  if (state->isReadOnly()) return 9;
  if (state->isCompleted()) return 2;
  if (state->IsOpen()) return 11;
  if (state->isChanged()) return 1;
  return state->isUnchanged() ? 0 : kNone;
}

}  // namespace qb
