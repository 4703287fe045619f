#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "model/CPxfFile.h"
#include "model/LoioTree.h"
#include "platform/ProfileFiles.h"
#include "ui/controls/TableTree.h"
#include "ui/frmQBTranslator.h"

namespace qb {

/// One load of a package: builds the model and fills both views of the main window. All writes of the load
/// reach the disk as one.
class PackageLoader {
 public:
  explicit PackageLoader(CPxfFile& package);
  PackageLoader(const PackageLoader&) = delete;
  PackageLoader& operator=(const PackageLoader&) = delete;
  ~PackageLoader();

  /// False if ill-formed data asked for the end of the program and the program goes on. Raises what ends the
  /// load.
  bool Load();

 private:
  /// What is read of a document before its object is complete.
  struct Document {
    std::int32_t number = 0;
    std::int32_t master = 0;
    std::int32_t subdocument = 0;
    std::int32_t slide = 0;
    std::string guid;
    std::string documentClass;
    std::string technicalName;
    std::string process;
    std::string progress;
    std::shared_ptr<CState> state;
    PhioList phios;
  };

  bool LoadDocument(std::int32_t number);
  bool ReadDocument(Document& document);
  bool ReadVersion(Document& document, std::int32_t number);
  void ReadFiles(std::int32_t document, CPhioEntry& version);
  std::int32_t ReadFileCount(std::int32_t document, std::int32_t version);
  void Show(CLoioEntry& loio);
  void ShowFiles(const CLoioEntry& loio, const CPhioEntry& shown, TreeNode& node);
  void ShowRow(const CLoioEntry& loio, const CPhioEntry* shown, int icon);
  bool IllFormed(std::string_view report, std::string_view textKey, bool wrongRole);

  CPxfFile& package_;
  frmQBTranslator& window_;
  std::optional<ProfileBatch> oneFlush_;
  CompanionSearch companions_;
  std::string role_;    ///< read last, maybe for the document before
  std::string format_;  ///< read last
};

}  // namespace qb
