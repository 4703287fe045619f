#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/CPxfFile.h"
#include "support/PackageBuilder.h"
#include "support/TestPlatform.h"
#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"

namespace qb {

/// Opens the operations of the package file that only its load uses.
struct PxfFileAccess {
  static bool WriteFilePXFEntry(CPxfFile& file, std::int32_t lLOIO, std::int32_t lPHIO, std::int32_t number,
                                std::string_view key, std::string_view value) {
    return file.WriteFilePXFEntry(lLOIO, lPHIO, number, key, value);
  }
  static std::string GetLOIOPXFEntry(CPxfFile& file, std::int32_t lLOIO, std::string_view key) {
    return file.GetLOIOPXFEntry(lLOIO, key);
  }
  static bool WriteLOIOPXFEntry(CPxfFile& file, std::int32_t lLOIO, std::string_view key,
                                std::string_view value) {
    return file.WriteLOIOPXFEntry(lLOIO, key, value);
  }
  static std::string GetPHIOPXFEntry(CPxfFile& file, std::int32_t lLOIO, std::int32_t lPHIO,
                                     std::string_view key) {
    return file.GetPHIOPXFEntry(lLOIO, lPHIO, key);
  }
  static bool WritePHIOPXFEntry(CPxfFile& file, std::int32_t lLOIO, std::int32_t lPHIO, std::string_view key,
                                std::string_view value) {
    return file.WritePHIOPXFEntry(lLOIO, lPHIO, key, value);
  }
  static std::string GetPHIOFilePXFEntry(CPxfFile& file, std::int32_t lLOIO, std::int32_t lPHIO,
                                         std::int32_t number, std::string_view key) {
    return file.GetPHIOFilePXFEntry(lLOIO, lPHIO, number, key);
  }
  static std::shared_ptr<CProperties> GetPHIOProperties(CPxfFile& file, std::int32_t lLOIO,
                                                        std::int32_t lPHIO) {
    return file.GetPHIOProperties(lLOIO, lPHIO);
  }
  static std::string GetSrcLanguage(CPxfFile& file) { return file.GetSrcLanguage(); }
  static std::string GetDstLanguage(CPxfFile& file) { return file.GetDstLanguage(); }
  static std::string GetRoPrefix(CPxfFile& file) { return file.GetRoPrefix(); }
  static std::string GetRwPrefix(CPxfFile& file) { return file.GetRwPrefix(); }
};

/// A test of the package model: a package object for `\pkg\Trans.pxf`, a message handler whose protocol
/// stands beside it, the main window with the root of its tree, and answers to what the model asks of higher
/// rooms.
class ModelTest : public PlatformTest {
 protected:
  static constexpr const char* kPackage = R"(\pkg\Trans.pxf)";
  static constexpr const char* kProtocol = R"(\pkg\Protocol.txt)";

  ModelTest();
  ~ModelTest() override;

  CPxfFile& Package() { return *gPxfFile; }
  TableTree& Tree() { return Default<frmQBTranslator>().TransPackTree; }
  ListView& List() { return Default<frmQBTranslator>().lvInfoObjectList; }
  static CLoioEntry& Loio(std::string_view key) { return *gLoios->Item(key); }

  /// Writes a package, without its document files, as `\pkg\Trans.pxf`.
  void WritePackage(const PackageBuilder& package) { Write(kPackage, package.Text()); }
  void WriteDocumentFiles(const PackageBuilder& package);
  /// Loads what stands in `\pkg\Trans.pxf` into fresh views.
  bool Load();
  /// Writes a package and loads it, which must succeed.
  void LoadPackage(const PackageBuilder& package);
  /// A value of the package file as a reader finds it.
  static std::string Entry(std::string_view section, std::string_view key);
  std::string PackageBytes() const { return Bytes(kPackage); }

  /// Traces all levels from now on.
  void StartTrace();
  /// Lines since `StartTrace`, each as `module.procedure: text`.
  std::vector<std::string> TraceLines() const;

  int newEditorSlots_ = 0;   ///< how often new editor slots were asked for
  std::vector<bool> quits_;  ///< each quit that was asked for, forced or not
};

}  // namespace qb
