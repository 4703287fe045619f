#include "model/PackageLoader.h"

#include <fmt/format.h>

#include <utility>

#include "foundation/CMessageHandler.h"
#include "foundation/CTrace.h"
#include "foundation/gRvdFile.h"
#include "foundation/modMultiLanguage.h"
#include "model/LoioTree.h"
#include "platform/Platform.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "ui/Forms.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "CPxfFile";
constexpr std::string_view kProcedure = "LoadData";
constexpr std::int16_t kMessage = 0;
constexpr std::int16_t kError = 2;

}  // namespace

PackageLoader::PackageLoader(CPxfFile& package) : package_(package), window_(Default<frmQBTranslator>()) {
}

PackageLoader::~PackageLoader() {
  package_.loading_ = false;
}

bool PackageLoader::Load() {
  gTouchedBeforeLoad = package_.IsTouched();
  gLoios = std::make_shared<Collection<std::shared_ptr<CLoioEntry>>>();
  gModelQuestions.newEditorSlots();
  ThePlatform().mousePointer->Set(MousePointer::kHourglass);
  package_.loadedLoios_.reset();
  oneFlush_.emplace(*ThePlatform().profiles, package_.strFileName);
  package_.loading_ = true;
  const std::int32_t count = package_.GetNumberOfLOIOs();
  for (std::int32_t number = 1; number <= count; ++number) {
    if (!LoadDocument(number)) return false;
  }
  package_.loadedLoios_ = gLoios;
  package_.loadedFile_ = package_.strFileName;
  return true;
}

bool PackageLoader::LoadDocument(std::int32_t number) {
  Document document;
  document.number = number;
  if (!ReadDocument(document)) return false;
  auto loio = std::make_shared<CLoioEntry>();
  loio->Init(document.technicalName, document.process, document.guid, document.documentClass, number,
             document.master, document.subdocument, document.slide, std::move(document.state),
             std::move(document.phios));
  loio->SavePLState();
  // Keys that differ in case only are one key in the list of documents but two in the tree.
  if (gLoios->Count() != static_cast<std::size_t>(number)) RaiseAbout(failure::kKeyAlreadyThere, loio->Key());
  Show(*loio);
  return true;
}

bool PackageLoader::ReadDocument(Document& document) {
  const std::int32_t number = document.number;
  package_.GetLocation(number, document.master, document.subdocument, document.slide);
  document.guid = package_.GetLOIOPXFEntry(number, "LOIO");
  document.documentClass = package_.GetLOIOPXFEntry(number, "CLASS");
  document.technicalName = package_.GetLOIOPXFEntry(number, "RVD_TECH_NAME");
  document.process = package_.GetLOIOPXFEntry(number, "PROCESS");
  document.progress = package_.GetLOIOPXFEntry(number, "PROGRESS");
  if (document.guid.empty() || document.documentClass.empty() || document.technicalName.empty()) {
    // No line break before the last two: stays so.
    return IllFormed(
        fmt::format("LOIO #{}\r\nLOIO_CLASS: '{}'\r\nROLE: '{}'\r\nTECHNICAL_NAME: '{}'EDIT_PROCESS: "
                    "'{}'PROGRESS: '{}'",
                    number, document.documentClass, role_, document.technicalName, document.process,
                    document.progress),
        "QB.QBTRANSLAT.CPXFFILE.000.LOADDATA.T.00001|Ill-formed data encountered in PXF file; please contact "
        "technical support staff.",
        false);
  }
  if (!document.progress.empty()) {
    document.state = std::make_shared<CState>();
    document.state->InternalizeState(document.progress);
  }
  const std::int32_t versions = package_.GetNumberOfPHIOs(number);
  for (std::int32_t version = 1; version <= versions; ++version) {
    if (!ReadVersion(document, version)) return false;
  }
  if (document.state == nullptr) {
    document.state = std::make_shared<CState>();
    document.state->SetStateFromDstCurr("READONLY");
  }
  document.state->OpenTransition();
  return true;
}

bool PackageLoader::ReadVersion(Document& document, std::int32_t number) {
  const std::int32_t loio = document.number;
  const std::string guid = package_.GetPHIOPXFEntry(loio, number, "PHIO");
  const std::string versionClass = package_.GetPHIOPXFEntry(loio, number, "CLASS");
  format_ = package_.GetPHIOPXFEntry(loio, number, "DOCUMENT_FORMAT");
  const std::string description = package_.GetPHIOPXFEntry(loio, number, "DESCRIPTION");
  const std::string state = package_.GetPHIOPXFEntry(loio, number, "STATE");
  role_ = package_.GetPHIOPXFEntry(loio, number, "ROLE");
  const std::string path = package_.GetPHIOPXFEntry(loio, number, "PATH");
  const auto illFormed = [&](bool wrongRole) {
    return IllFormed(
        fmt::format("LOIO #{}\r\nPHIO #{}\r\nPHIO_CLASS: '{}'\r\nROLE: '{}'\r\nDOCUMENT_FORMAT: '{}'", loio,
                    number, versionClass, role_, format_),
        "QB.QBTRANSLAT.CPXFFILE.000.LOADDATA.T.00002|Ill-formed data encountered in PXF file; please contact "
        "technical support staff.",
        wrongRole);
  };
  if (versionClass.empty() || guid.empty() || role_.empty() || path.empty() || state.empty()) {
    return illFormed(false);
  }
  auto properties = package_.GetPHIOProperties(loio, number);
  auto version = std::make_shared<CPhioEntry>();
  // Hyperlinks are never read: the version makes its empty list when it is asked for it.
  if (!version->Init(number, role_, guid, versionClass, format_, description, path, state, nullptr,
                     std::move(properties))) {
    return illFormed(true);
  }
  if (document.state == nullptr && version->erRole == role::kDstCurr) {
    document.state = std::make_shared<CState>();
    document.state->SetStateFromDstCurr(document.progress);  // empty here, whatever the version's word is
  }
  ReadFiles(loio, *version);
  document.phios.push_back(std::move(version));
  return true;
}

std::int32_t PackageLoader::ReadFileCount(std::int32_t document, std::int32_t version) {
  const std::int32_t count = StrictNumber(package_.GetPHIOPXFEntry(document, version, "FILE_COUNT"));
  // A file takes more than a byte, so a higher count is no count.
  if (count > 0 && static_cast<std::uint64_t>(count) > ThePlatform().profiles->Length(package_.strFileName)) {
    throw RuntimeError(failure::kOverflow, {},
                       fmt::format("{}: FILE_COUNT {} of LOIO #{}, PHIO #{}",
                                   StandardDescription(failure::kOverflow), count, document, version));
  }
  return count;
}

void PackageLoader::ReadFiles(std::int32_t document, CPhioEntry& version) {
  const std::int32_t number = version.PhioNo();
  package_.blnPrimarySeen = false;
  const std::int32_t count = ReadFileCount(document, number);
  CPhioEntry others;
  for (std::int32_t file = 1; file <= count; ++file) {
    const std::string name = package_.GetPHIOFilePXFEntry(document, number, file, "FILE_NAME");
    const std::string shortName = package_.GetPHIOFilePXFEntry(document, number, file, "SHORT_NAME");
    const std::string format = package_.GetPHIOFilePXFEntry(document, number, file, "FORMAT");
    const bool primary = format == kPrimaryFormat;
    if (primary) package_.blnPrimarySeen = true;
    (primary ? version : others).Add(name, format, shortName, {});
  }
  for (std::size_t i = 1; i <= others.Components.Count(); ++i) {
    const std::shared_ptr<CPhioFile>& file = others.Components.Item(i);
    if (!package_.blnPrimarySeen && i == 1) file->FileFormat = kPrimaryFormat;
    version.Components.Add(file);
  }
}

void PackageLoader::Show(CLoioEntry& loio) {
  TableTree& tree = window_.TransPackTree;
  const int icon = loio.GetStateIcon();
  TreeNode& node = tree.AddEx(&tree.Nodes(kRootKey), TableTree::kChild, loio.Key(),
                              loio.GetTitle(role::kDstCurr), icon, icon, 0);
  node.SetTitle(loio.TechnicalName());
  node.EnsureVisible();
  node.SetExpanded(false);
  const std::shared_ptr<CPhioEntry> shown = loio.GetPhio(true);
  if (shown != nullptr) ShowFiles(loio, *shown, node);
  ShowRow(loio, shown.get(), node.Image());
  node.SetExpanded(false);
}

void PackageLoader::ShowFiles(const CLoioEntry& loio, const CPhioEntry& shown, TreeNode& node) {
  for (std::size_t i = 1; i <= shown.Components.Count(); ++i) {
    const CPhioFile& file = *shown.Components.Item(i);
    TreeNode& child =
        window_.TransPackTree.AddEx(&node, TableTree::kChild, FileNodeKey(loio.Key(), file.FileName),
                                    file.FileName, kFileImage, kFileImage, 0);
    if (file.FileFormat == kPrimaryFormat) {
      child.SetImage(kPrimaryImage);
      child.SetExpandedImage(kPrimaryImage);
    }
    // Without a companion of the file just added there would be nothing to do.
    if (companions_.Finds(loio, file.FileName)) UpdateTtxNodes(loio.Key());
  }
}

void PackageLoader::ShowRow(const CLoioEntry& loio, const CPhioEntry* shown, int icon) {
  ListRow& row = window_.lvInfoObjectList.Add(loio.Key(), loio.TechnicalName(), icon);
  row.SetSubItems(2, loio.state->ExternalizeState());
  row.SetSubItems(3, {});
  if (shown == nullptr) throw RuntimeError(failure::kObjectNotSet);
  row.SetSubItems(5, shown->GetPRIMFileName());
  row.SetSubItems(6, format_);
  row.SetSmallIcon(icon);
}

bool PackageLoader::IllFormed(std::string_view report, std::string_view textKey, bool wrongRole) {
  oneFlush_.reset();  // the quit may end the process at once
  package_.loading_ = false;
  Trace(3, kModule, kProcedure, "{}", report);
  if (wrongRole) Trace(3, kModule, kProcedure, "phio.Init failt (wrong role?)");  // misspelled: stays so
  gMessageHandler->Message(report, kMessage, false, false);
  gMessageHandler->Message(QBL_LText(textKey), kError, true, false);
  gModelQuestions.quitProgram(true);
  return false;
}

}  // namespace qb
