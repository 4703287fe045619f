#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/CLoioEntry.h"
#include "runtime/Collection.h"

namespace qb {

/// The only reader and writer of the package file. It holds no values: each getter reads the file and each
/// setter writes one key at once. `lLOIO`, `lPHIO` and file numbers count from 1. Booleans tell success.
class CPxfFile : public std::enable_shared_from_this<CPxfFile> {
 public:
  std::string strFileName;       ///< full path of the package file; empty until `Init`
  bool blnPrimarySeen = false;   ///< working mark of `LoadData`
  bool blnCountMissing = false;  ///< a count key was absent

  /// A free add-section name.
  std::string GetNewAddSectionName();
  /// Writes the list of links of a PHIO; false without a list.
  bool WriteHyperlinks(std::int32_t lLOIO, std::int32_t lPHIO, const Collection<std::string>* colLinks);
  void Init(std::string_view fileName);
  std::string GetPxfTitle();
  std::string GetTerminologyName();
  std::string GetTranslationMemoryName();
  bool IsTouched();
  /// Writes the file's length into it.
  bool UpdateFileSize();
  bool Touch();
  /// Leaves the three numbers untouched unless all are there.
  void GetLocation(std::int32_t lLOIO, std::int32_t& lMasterDoc, std::int32_t& lSubDoc, std::int32_t& lSlide);
  /// Makes the keys of a PHIO's file list match `myphio.Components`; those above a gap of the old list stay.
  bool SavePhioFiles(std::int32_t lLOIO, const CPhioEntry& myphio);
  /// Blanks around the section do not count.
  bool DeletePXFEntry(std::string_view Section, std::string_view Key);
  /// The later of the time stamp that the package holds for a document and the file's own, as 14 digits. The
  /// two ask each other first, without a condition, so that neither comes to an end: each raises 28 (out of
  /// stack space). They stay as they are and have no use.
  std::string GetLoioTimeStamp(std::int32_t lLOIO, std::string_view FileName);
  bool SaveLoioTimeStamp(std::int32_t lLOIO, std::string_view FileName);
  /// Turns the package file into the model and fills both views. False when a run-time error ended it.
  bool LoadData();
  void SavePHIOState(std::int32_t lLOIO, std::int32_t lPHIO, std::string_view strState);
  void SaveLOIOState(std::int32_t lLOIO, std::string_view strState);
  /// Last modification of a file as 14 digits.
  std::string GetFileModification(std::string_view FileName);
  bool IsTradosPackage();
  bool IsQBTPackage();
  bool IsLocalizationPackage();
  std::string GetQBTWorkflow();
  bool WritePHIOProperties(std::int32_t lLOIO, std::int32_t lPHIO, CProperties& props);
  /// What stands right of the last separator of the file's path.
  std::string GetPxfFileName() const;
  /// The package's directory.
  std::string GetPxfPath() const;
  std::int32_t GetNumberOfLOIOs();
  std::int32_t GetNumberOfPHIOs(std::int32_t lLOIO);
  std::int32_t GetNumberOfFiles(std::int32_t lLOIO, std::int32_t lPHIO);

  /// Whether `path` (as `GetPxfPath` joined with what the package says) stays inside the package's folder,
  /// links followed. Nothing outside is written, deleted or started.
  bool IsInsidePackage(std::string_view path) const;

  /// Why nothing can be written for a document now: the file is missing, or it is no longer the package that
  /// was loaded. Empty if it is there and the same.
  std::string WhyLocked(std::int32_t lLOIO) const;

 private:
  friend class PackageLoader;
  friend struct PxfFileAccess;  // of the tests
  bool WriteFilePXFEntry(std::int32_t lLOIO, std::int32_t lPHIO, std::int32_t file, std::string_view key,
                         std::string_view value);
  std::string GetLOIOPXFEntry(std::int32_t lLOIO, std::string_view key);
  bool WriteLOIOPXFEntry(std::int32_t lLOIO, std::string_view key, std::string_view value);
  std::string GetPHIOPXFEntry(std::int32_t lLOIO, std::int32_t lPHIO, std::string_view key);
  bool WritePHIOPXFEntry(std::int32_t lLOIO, std::int32_t lPHIO, std::string_view key,
                         std::string_view value);
  std::string GetPHIOFilePXFEntry(std::int32_t lLOIO, std::int32_t lPHIO, std::int32_t file,
                                  std::string_view key);
  std::string GetSrcLanguage();
  std::string GetDstLanguage();
  std::string GetRoPrefix();
  std::shared_ptr<CProperties> GetPHIOProperties(std::int32_t lLOIO, std::int32_t lPHIO);
  std::string GetRwPrefix();

  /// One key of the file as text.
  std::string Read(std::string_view section, std::string_view key) const;
  /// False while the file is missing or is no longer the package that was loaded; that is noted.
  bool MayWrite(std::string_view section) const;
  std::string WhyLocked(std::string_view section) const;
  /// Writes one key, or removes it without a value.
  bool Write(std::string_view section, std::string_view key, std::optional<std::string_view> value);
  /// False if another package stands in the place of the one whose document was loaded under this number.
  bool HoldsLoadedLoio(std::string_view section) const;
  std::int32_t ReadCount(const std::string& text);
  void WriteLinkList(std::int32_t lLOIO, std::int32_t lPHIO, const Collection<std::string>& links);
  void WritePropertyList(std::int32_t lLOIO, std::int32_t lPHIO, CProperties& props);
  void RemoveFilesBehind(std::int32_t lLOIO, std::int32_t lPHIO, std::int32_t count);

  bool loading_ = false;  ///< the load holds the file, which nobody else can change
  /// The documents as this object has loaded them, the one of number n at position n; absent before that.
  std::shared_ptr<Collection<std::shared_ptr<CLoioEntry>>> loadedLoios_;
  std::string loadedFile_;  ///< the file that they were loaded from
  int stampDepth_ = 0;
};

/// The package file object; without a package an object without a file, after a failed load nothing.
extern std::shared_ptr<CPxfFile> gPxfFile;

/// The package file object; raises 91 if there is none.
CPxfFile& ThePxfFile();

/// Why a write to a package was refused since the last call; empty if none was.
std::string TakeRefusedWrite();

/// Whether the package had been touched before its last load. Nothing reads it.
extern bool gTouchedBeforeLoad;

/// What the model asks of higher rooms. Set once at the start.
struct ModelQuestions {
  std::function<void()> newEditorSlots;         ///< puts new editor slots in place of the old ones
  std::function<void(bool force)> quitProgram;  ///< the one way out of the program; may return
};
extern ModelQuestions gModelQuestions;

}  // namespace qb
