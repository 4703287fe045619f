// Single keys of documents, their language versions and files.

#include <fmt/format.h>

#include <algorithm>

#include "foundation/CTrace.h"
#include "model/CPxfFile.h"
#include "model/NumberedName.h"
#include "platform/Platform.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "CPxfFile";
constexpr std::string_view kUnknownTime = "00000000000000";
constexpr long kOutOfStackSpace = 28;
constexpr int kStackSpace = 100;

/// Counts the calls that a pair of procedures has open, and ends them as the language does.
class OpenCall {
 public:
  explicit OpenCall(int& depth) : depth_(depth) {
    if (depth_ >= kStackSpace) throw RuntimeError(kOutOfStackSpace, {}, "Out of stack space");
    ++depth_;
  }
  OpenCall(const OpenCall&) = delete;
  OpenCall& operator=(const OpenCall&) = delete;
  ~OpenCall() { --depth_; }

 private:
  int& depth_;
};

/// The later of two stamps, compared as numbers; the second on a tie.
const std::string& Later(const std::string& stamp, const std::string& fileStamp) {
  return std::stoull(stamp) > std::stoull(fileStamp) ? stamp : fileStamp;
}

}  // namespace

std::string CPxfFile::GetLOIOPXFEntry(std::int32_t lLOIO, std::string_view key) {
  return Read(NumberedName(lLOIO), key);
}

bool CPxfFile::WriteLOIOPXFEntry(std::int32_t lLOIO, std::string_view key, std::string_view value) {
  const bool written = Write(NumberedName(lLOIO), key, value);
  Trace(3, kModule, "WriteLOIOPXFEntry",
        "write to PXF: '{}'<<< LOIO: '{}' key: '{}' Value: '{}' PxfFileName: '{}'", BooleanText(written),
        lLOIO, key, value, strFileName);
  return written;
}

std::string CPxfFile::GetPHIOPXFEntry(std::int32_t lLOIO, std::int32_t lPHIO, std::string_view key) {
  std::string value = Read(NumberedName(lLOIO), NumberedName(lPHIO, key));
  Trace(3, kModule, "GetPHIOPXFEntry", "read PXF: '{}'<<< LOIO: '{}' PHIO: '{}' Entry: '{}'", value, lLOIO,
        lPHIO, key);
  return value;
}

bool CPxfFile::WritePHIOPXFEntry(std::int32_t lLOIO, std::int32_t lPHIO, std::string_view key,
                                 std::string_view value) {
  const bool written = Write(NumberedName(lLOIO), NumberedName(lPHIO, key), value);
  Trace(3, kModule, "WritePHIOPXFEntry",
        "write to PXF: '{}'<<< LOIO: '{}' PHIO: '{}' key: '{}' Value: '{}' PxfFileName: '{}'",
        BooleanText(written), lLOIO, lPHIO, key, value, strFileName);
  return written;
}

std::string CPxfFile::GetPHIOFilePXFEntry(std::int32_t lLOIO, std::int32_t lPHIO, std::int32_t file,
                                          std::string_view key) {
  std::string value = Read(NumberedName(lLOIO), NumberedName(lPHIO, key, file));
  Trace(3, kModule, "GetPHIOFilePXFEntry", "read PXF: '{}'<<< LOIO: '{}' PHIO: '{}' Entry: '{}' File: '{}'",
        value, lLOIO, lPHIO, key, file);
  return value;
}

bool CPxfFile::WriteFilePXFEntry(std::int32_t lLOIO, std::int32_t lPHIO, std::int32_t file,
                                 std::string_view key, std::string_view value) {
  const bool written = Write(NumberedName(lLOIO), NumberedName(lPHIO, key, file), value);
  Trace(3, kModule, "WriteFilePXFEntry",
        "write PXF: '{}'<<< LOIO: '{}' PHIO: '{}' Key: '{}' File: '{}' Value: '{}'", BooleanText(written),
        lLOIO, lPHIO, key, file, value);
  return written;
}

bool CPxfFile::DeletePXFEntry(std::string_view Section, std::string_view Key) {
  const bool removed = Write(Section, Key, std::nullopt);
  Trace(3, kModule, "DeletePXFEntry", "delete PXF Entry: Section: '{}' Key: '{}' PXFFileName: '{}'", Section,
        Key, strFileName);
  UpdateFileSize();
  return removed;
}

void CPxfFile::GetLocation(std::int32_t lLOIO, std::int32_t& lMasterDoc, std::int32_t& lSubDoc,
                           std::int32_t& lSlide) {
  const std::string master = GetLOIOPXFEntry(lLOIO, "MASTER");
  const std::string subdocument = GetLOIOPXFEntry(lLOIO, "SEQNR1");
  const std::string slide = GetLOIOPXFEntry(lLOIO, "SEQNR2");
  if (master.empty() || subdocument.empty() || slide.empty()) return;
  lMasterDoc = LenientNumber(master);
  lSubDoc = LenientNumber(subdocument);
  lSlide = LenientNumber(slide);
}

void CPxfFile::SavePHIOState(std::int32_t lLOIO, std::int32_t lPHIO, std::string_view strState) {
  WritePHIOPXFEntry(lLOIO, lPHIO, "STATE", strState);
  Trace(3, kModule, "SavePHIOState", "write PXF: LOIO: '{}' PHIO: '{}' State: '{}'", lLOIO, lPHIO, strState);
}

void CPxfFile::SaveLOIOState(std::int32_t lLOIO, std::string_view strState) {
  WriteLOIOPXFEntry(lLOIO, "PROGRESS", strState);
  Trace(3, kModule, "SaveLOIOState", "write PXF: LOIO: '{}' Progress: '{}'", lLOIO, strState);
}

std::string CPxfFile::GetLoioTimeStamp(std::int32_t lLOIO, std::string_view FileName) {
  const OpenCall call(stampDepth_);
  SaveLoioTimeStamp(lLOIO, FileName);
  std::string stamp = GetLOIOPXFEntry(lLOIO, "TIMESTAMP");
  if (stamp.empty()) stamp = kUnknownTime;
  Trace(3, kModule, "GetLoioTimeStamp", "read PXF: '{}'<<< LOIO: '{}' Timestamp: '{}'", stamp, lLOIO, stamp);
  return stamp;
}

bool CPxfFile::SaveLoioTimeStamp(std::int32_t lLOIO, std::string_view FileName) {
  const OpenCall call(stampDepth_);
  const std::string stamp = GetLoioTimeStamp(lLOIO, FileName);
  const std::string fileStamp = GetFileModification(FileName);
  const std::string& later = Later(stamp, fileStamp);
  const bool written = WriteLOIOPXFEntry(lLOIO, "TIMESTAMP", later);
  Trace(3, kModule, "SaveLoioTimeStamp", "write PXF: '{}'<<< LOIO: '{}' Timestamp: '{}'",
        BooleanText(written), lLOIO, later);
  UpdateFileSize();
  return written;
}

}  // namespace qb
