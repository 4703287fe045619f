#include "model/CPxfFile.h"

#include <fmt/format.h>

#include <charconv>
#include <utility>

#include "foundation/CTrace.h"
#include "foundation/OrbQBCommonFunctionsMod.h"
#include "foundation/gRvdError.h"
#include "foundation/gRvdFile.h"
#include "model/NumberedName.h"
#include "model/PackageLoader.h"
#include "platform/Platform.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {

std::shared_ptr<CPxfFile> gPxfFile;
ModelQuestions gModelQuestions;
bool gTouchedBeforeLoad = false;

CPxfFile& ThePxfFile() {
  if (gPxfFile == nullptr) throw RuntimeError(failure::kObjectNotSet);
  return *gPxfFile;
}

namespace {

constexpr std::string_view kModule = "CPxfFile";
constexpr std::string_view kGlobal = "GLOBAL";
constexpr std::string_view kTranslation = "TRANS";

std::string refusedWrite;  // the reason of the last one; empty if none was refused

/// The LOIO number that a section's name states; 0 for another section.
std::size_t LoioNumber(std::string_view section) {
  const std::string_view digits = Trim(section);
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size() ? number : 0;
}

/// Whether what stands behind the package's folder goes up, or leaves by a drive.
bool Leaves(std::string_view path) {
  while (true) {
    const std::size_t separator = path.find_first_of("\\/");
    const std::string_view name = path.substr(0, separator);
    if (name == ".." || name.find(':') != std::string_view::npos) return true;
    if (separator == std::string_view::npos) return false;
    path.remove_prefix(separator + 1);
  }
}

std::string WithoutLastSeparator(std::string path) {
  if (!path.empty() && path.back() == '\\') path.pop_back();
  return path;
}

}  // namespace

std::string CPxfFile::Read(std::string_view section, std::string_view key) const {
  return GetIniEntry(strFileName, section, key, {});
}

bool CPxfFile::HoldsLoadedLoio(std::string_view section) const {
  if (loadedLoios_ == nullptr || loadedLoios_->Count() == 0) return true;
  const std::size_t number = LoioNumber(section);
  // Between one package and the next, the documents in memory are not those of the file.
  if (loadedFile_ != strFileName) return number == 0;
  const std::size_t witness = number == 0 || number > loadedLoios_->Count() ? 1 : number;
  return Read(NumberedName(static_cast<std::int32_t>(witness)), "LOIO") ==
         loadedLoios_->Item(witness)->LOIO_GUID();
}

std::string CPxfFile::WhyLocked(std::string_view section) const {
  // A package that was removed must not come back as a fragment.
  if (strFileName.empty() || !ThePlatform().files->Stamp(strFileName)) {
    return fmt::format("{}: {}", strFileName, StandardDescription(failure::kFileNotFound));
  }
  if (HoldsLoadedLoio(section)) return {};
  return fmt::format("{}: another package stands in its place", strFileName);
}

std::string CPxfFile::WhyLocked(std::int32_t lLOIO) const {
  return WhyLocked(std::to_string(lLOIO));
}

bool CPxfFile::MayWrite(std::string_view section) const {
  if (loading_) return true;
  std::string reason = WhyLocked(section);
  if (reason.empty()) return true;
  refusedWrite = std::move(reason);
  return false;
}

bool CPxfFile::Write(std::string_view section, std::string_view key, std::optional<std::string_view> value) {
  return MayWrite(section) &&
         ThePlatform().profiles->WritePrivateProfileString(section, key, value, strFileName);
}

std::string TakeRefusedWrite() {
  ProfileFiles& profiles = *ThePlatform().profiles;
  const std::string systemReason = profiles.LastRefusal();
  profiles.ForgetRefusal();
  const std::string ownReason = std::exchange(refusedWrite, {});
  return ownReason.empty() ? systemReason : ownReason;
}

void CPxfFile::Init(std::string_view fileName) {
  strFileName = fileName;
}

std::string CPxfFile::GetPxfTitle() {
  return Read(kGlobal, "TITLE");
}

std::string CPxfFile::GetTerminologyName() {
  return Read(kTranslation, "TERMINOLOGY");
}

std::string CPxfFile::GetTranslationMemoryName() {
  return Read(kTranslation, "TRANSMEMORY");
}

std::string CPxfFile::GetSrcLanguage() {
  return UpperCase(Read(kGlobal, "SRCLANGUAGE"));
}

std::string CPxfFile::GetDstLanguage() {
  return UpperCase(Read(kGlobal, "DSTLANGUAGE"));
}

std::string CPxfFile::GetRoPrefix() {
  std::string prefix = Read(kTranslation, "RO_PREFIX");
  return prefix.empty() ? "old" : prefix;
}

std::string CPxfFile::GetRwPrefix() {
  std::string prefix = Read(kTranslation, "RW_PREFIX");
  return prefix.empty() ? "dst" : prefix;
}

bool CPxfFile::IsTouched() {
  const bool touched = !Read(kTranslation, "TOUCHED").empty();
  Trace(3, kModule, "IsTouched", "read PXF: isTouched: '{}'", BooleanText(touched));
  return touched;
}

bool CPxfFile::Touch() {
  ProfileBatch oneFlush(*ThePlatform().profiles, strFileName);
  bool written = Write(kTranslation, "TOUCHED", "TRUE") && UpdateFileSize();
  written = oneFlush.End() && written;
  Trace(3, kModule, "Touch", "write PXF: Touch: '{}'", BooleanText(written));
  return written;
}

bool CPxfFile::UpdateFileSize() {
  bool written = false;
  Attempt([&] {
    flushINIFile(strFileName);
    const std::uint64_t length = ThePlatform().profiles->Length(strFileName);
    written = Write(kGlobal, "FILESIZE", fmt::format("{:08}", length));
  });
  Err.Clear();
  return written;
}

bool CPxfFile::IsTradosPackage() {
  const std::string type = UpperCase(Read(kTranslation, "TRANSTYPE"));
  const bool trados = type == "TWB2" || type == "GEN_TWB";
  if (!strFileName.empty()) {
    Trace(3, kModule, "IsTradosPackage", "Is Trados Package: '{}'", BooleanText(trados));
  }
  return trados;
}

bool CPxfFile::IsQBTPackage() {
  const std::string type = UpperCase(Read(kTranslation, "TRANSTYPE"));
  const bool own = type == "GEN" || type == "GEN_TWB";
  if (!strFileName.empty()) Trace(3, kModule, "IsQBTPackage", "Is QBT Package: '{}'", BooleanText(own));
  return own;
}

bool CPxfFile::IsLocalizationPackage() {
  const bool localization = IsQBTPackage() && UpperCase(Read(kTranslation, "QBT_WF")) == "LOCAL";
  if (!strFileName.empty()) {
    Trace(3, kModule, "IsLocalizationPackage", "Is Localization Package: '{}'", BooleanText(localization));
  }
  return localization;
}

std::string CPxfFile::GetQBTWorkflow() {
  std::string workflow = UpperCase(Read(kTranslation, "QBT_WF"));
  if (!strFileName.empty()) Trace(3, kModule, "GetQBTWorkflow", "Get QBT Workflow: '{}'", workflow);
  return workflow;
}

std::string CPxfFile::GetPxfFileName() const {
  return FileNameOf(strFileName);
}

std::string CPxfFile::GetPxfPath() const {
  return DirectoryOf(strFileName);
}

std::int32_t CPxfFile::ReadCount(const std::string& text) {
  if (text.empty()) blnCountMissing = true;
  return LenientNumber(text);
}

std::int32_t CPxfFile::GetNumberOfLOIOs() {
  return ReadCount(Read(kGlobal, "INFOBJS"));
}

std::int32_t CPxfFile::GetNumberOfPHIOs(std::int32_t lLOIO) {
  return ReadCount(GetLOIOPXFEntry(lLOIO, "PHIO_COUNT"));
}

std::int32_t CPxfFile::GetNumberOfFiles(std::int32_t lLOIO, std::int32_t lPHIO) {
  const std::string text = GetPHIOPXFEntry(lLOIO, lPHIO, "FILE_COUNT");
  const std::int32_t count = ReadCount(text);
  if (!text.empty()) Trace(3, kModule, "GetNumberOfFiles", "read PXF: number of files: '{}'", count);
  return count;
}

std::string CPxfFile::GetFileModification(std::string_view FileName) {
  CMyFileTime time;
  time.SetFile(FileName);
  std::string stamp = time.GetLastModification();
  Trace(3, kModule, {}, "File modification: '{}'", stamp);  // without a procedure: stays so
  return stamp;
}

bool CPxfFile::IsInsidePackage(std::string_view path) const {
  const std::string folder = GetPxfPath();
  if (!path.starts_with(folder) || Leaves(path.substr(folder.size()))) return false;
  FileSystem& files = *ThePlatform().files;
  const std::string resolvedFolder = WithoutLastSeparator(files.Resolved(JoinFile(folder, {}))) + '\\';
  return files.Resolved(path).starts_with(resolvedFolder);
}

bool CPxfFile::LoadData() {
  // Ill-formed data ends in the quit of the program, which releases the package object.
  const std::shared_ptr<CPxfFile> keptAlive = weak_from_this().lock();
  const TracedProcedure traced(kModule, "LoadData");
  bool loaded = false;
  if (!Attempt([&] { loaded = PackageLoader(*this).Load(); })) {
    TracePendingError(kModule, "LoadData");
    gRvdError(kModule, "LoadData");
  }
  ThePlatform().mousePointer->Set(MousePointer::kDefault);
  return loaded;
}

}  // namespace qb
