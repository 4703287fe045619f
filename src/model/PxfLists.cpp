// Lists of the package file: component files, and the add-sections of properties and hyperlinks.

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "foundation/CTrace.h"
#include "foundation/Product.h"
#include "foundation/gRvdError.h"
#include "foundation/modMultiLanguage.h"
#include "model/CPxfFile.h"
#include "model/NumberedName.h"
#include "platform/Platform.h"
#include "platform/ProfileLine.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "CPxfFile";
constexpr std::string_view kAddSection = "ADD";
constexpr std::size_t kBufferLength = 32767;  // characters
constexpr std::uint64_t kHighestNumber = 1'000'000'000;

/// The names of all sections, separated by NUL. A listing that may have been cut is read again, since a name
/// that it lacks would be given away twice.
std::string AllSectionNames(std::string_view path) {
  std::size_t size = kBufferLength - 1;
  while (true) {
    std::string names = ThePlatform().profiles->GetPrivateProfileSectionNames(size, path);
    if (CharacterCount(names) + 1 < size) return names;
    size *= 2;
  }
}

/// Every n for which "ADD" and n occurs somewhere in `names`: "ADD12" takes 12 and 1.
std::set<std::uint64_t> TakenNumbers(std::string_view names) {
  std::set<std::uint64_t> taken;
  for (std::size_t at = names.find(kAddSection); at != std::string_view::npos;
       at = names.find(kAddSection, at + 1)) {
    std::uint64_t number = 0;
    for (const char digit : names.substr(at + kAddSection.size())) {
      if (digit < '0' || digit > '9') break;
      number = number * 10 + static_cast<std::uint64_t>(digit - '0');
      if (number == 0 || number > kHighestNumber) break;  // no candidate is spelled so, or so high
      taken.insert(number);
    }
  }
  return taken;
}

}  // namespace

std::string CPxfFile::GetNewAddSectionName() {
  std::uint64_t free = 1;
  for (const std::uint64_t number : TakenNumbers(AllSectionNames(strFileName))) {
    if (number != free) break;
    ++free;
  }
  std::string name = fmt::format("{}{}", kAddSection, free);
  Trace(3, kModule, "GetNewAddSectionName", "new ADD_Section Name: '{}'", name);
  return name;
}

void CPxfFile::WriteLinkList(std::int32_t lLOIO, std::int32_t lPHIO, const Collection<std::string>& links) {
  if (!MayWrite(NumberedName(lLOIO))) return;
  const ProfileBatch oneFlush(*ThePlatform().profiles, strFileName);
  std::string section = GetPHIOPXFEntry(lLOIO, lPHIO, "ADDSECTION");
  if (section.empty()) {
    section = GetNewAddSectionName();
    if (!WritePHIOPXFEntry(lLOIO, lPHIO, "ADDSECTION", section)) return;
  }
  if (!Write(section, "COUNT", std::to_string(links.Count()))) return;
  for (std::int32_t i = 1; i <= static_cast<std::int32_t>(links.Count()); ++i) {
    const std::string& link = links.Item(static_cast<std::size_t>(i));
    Write(section, NumberedName(i, "NAME"), "");
    Write(section, NumberedName(i, "VALUE"), link);
    Write(section, NumberedName(i, "INFO"), "");
    Trace(3, kModule, "WriteHyperlinks",
          "write Hyp.-Link to PXF: Section: '{} '{}NAME': '{} '{}VALUE': '{} '{}INFO': '{}'", section, i, "",
          i, link, i, "");
  }
  UpdateFileSize();
}

bool CPxfFile::WriteHyperlinks(std::int32_t lLOIO, std::int32_t lPHIO,
                               const Collection<std::string>* colLinks) {
  if (colLinks == nullptr) return false;
  // A refused write stops the list but is no failure: stays so.
  if (Attempt([&] { WriteLinkList(lLOIO, lPHIO, *colLinks); })) return true;
  TracePendingError(kModule, "WriteHyperlinks");
  gRvdError(kModule, "WriteHyperlinks");
  return false;
}

void CPxfFile::WritePropertyList(std::int32_t lLOIO, std::int32_t lPHIO, CProperties& props) {
  if (!MayWrite(NumberedName(lLOIO))) return;
  const ProfileBatch oneFlush(*ThePlatform().profiles, strFileName);
  std::string section = GetPHIOPXFEntry(lLOIO, lPHIO, "PROPSECTION");
  if (section.empty()) {
    section = GetNewAddSectionName();
    WritePHIOPXFEntry(lLOIO, lPHIO, "PROPSECTION", section);
  }
  Write(section, "COUNT", std::to_string(props.Count()));
  for (std::int32_t i = 1; i <= static_cast<std::int32_t>(props.Count()); ++i) {
    const CProperty& property = props.Item(static_cast<std::size_t>(i));
    Write(section, NumberedName(i, "NAME"), ValueThatReadsBack(property.Name));
    Write(section, NumberedName(i, "VALUE"), ValueThatReadsBack(property.Value));
    Write(section, NumberedName(i, "INFO"), ValueThatReadsBack(property.Info));
    Trace(3, kModule, "WritePHIOProperties",
          "write PHIO-Props to PXF: Section: '{} '{}NAME': '{} '{}VALUE': '{} '{}INFO': '{}'", section, i,
          property.Name, i, property.Value, i, property.Info);
  }
  UpdateFileSize();
}

bool CPxfFile::WritePHIOProperties(std::int32_t lLOIO, std::int32_t lPHIO, CProperties& props) {
  // No write's result counts: stays so.
  if (Attempt([&] { WritePropertyList(lLOIO, lPHIO, props); })) return true;
  TracePendingError(kModule, "WritePHIOProperties");
  gRvdError(kModule, "WritePHIOProperties");
  return false;
}

std::shared_ptr<CProperties> CPxfFile::GetPHIOProperties(std::int32_t lLOIO, std::int32_t lPHIO) {
  auto properties = std::make_shared<CProperties>();
  const std::string section = GetPHIOPXFEntry(lLOIO, lPHIO, "PROPSECTION");
  if (section.empty()) return properties;
  const std::int32_t count = LenientNumber(Read(section, "COUNT"));
  for (std::int32_t i = 1; i <= count; ++i) {
    const std::string name = Read(section, NumberedName(i, "NAME"));
    if (name.empty()) {
      MsgBox(QBL_LText(
          "QB.QBTRANSLAT.CPXFFILE.000.GETPHIOPROPERTI001661.T.00003|Error while loading properties"));
      return nullptr;
    }
    const CProperty& property = properties->Add(name, Read(section, NumberedName(i, "VALUE")),
                                                Read(section, NumberedName(i, "INFO")), {});
    Trace(3, kModule, "GetPHIOProperties", "fill Props-Coll.: '' Name: '{}' Value: '{}' Info: '{}'",
          property.Name, property.Value, property.Info);
  }
  return properties;
}

void CPxfFile::RemoveFilesBehind(std::int32_t lLOIO, std::int32_t lPHIO, std::int32_t count) {
  const std::string section = fmt::format(" {}", lLOIO);  // blanks around a section's name do not count
  for (std::int32_t i = count + 1; !GetPHIOFilePXFEntry(lLOIO, lPHIO, i, "FILE_NAME").empty(); ++i) {
    bool removed = true;
    for (const char* word : {"FILE_NAME", "FORMAT", "SHORT_NAME"}) {
      removed = DeletePXFEntry(section, fmt::format("{}{}{}", lPHIO, word, i)) && removed;
    }
    if (!removed) return;
  }
}

bool CPxfFile::SavePhioFiles(std::int32_t lLOIO, const CPhioEntry& myphio) {
  ProfileBatch oneFlush(*ThePlatform().profiles, strFileName);
  const std::int32_t phio = myphio.PhioNo();
  const auto count = static_cast<std::int32_t>(myphio.Components.Count());
  bool written = true;
  for (std::int32_t i = 1; i <= count; ++i) {
    const CPhioFile& file = *myphio.Components.Item(static_cast<std::size_t>(i));
    const bool name = WriteFilePXFEntry(lLOIO, phio, i, "FILE_NAME", file.FileName);
    const bool format = WriteFilePXFEntry(lLOIO, phio, i, "FORMAT", file.FileFormat);
    const bool shortName = WriteFilePXFEntry(lLOIO, phio, i, "SHORT_NAME", file.ShortName);
    written = name && format && shortName;  // the last file alone counts: stays so
    Trace(3, kModule, "SavePhioFiles",
          "write PXF: Component: '{}' LOIO: '{}' PHIO: '{}'{}FILE_NAME: '{}'{}FORMAT: '{}'{}SHORT_NAME: '{}'",
          BooleanText(written), lLOIO, phio, i, file.FileName, i, file.FileFormat, i, file.ShortName);
  }
  written = WritePHIOPXFEntry(lLOIO, phio, "FILE_COUNT", std::to_string(count)) && written;
  RemoveFilesBehind(lLOIO, phio, count);
  written = WritePHIOPXFEntry(lLOIO, phio, "FILE_COUNT", std::to_string(count)) && written;
  Trace(3, kModule, "SavePhioFiles", "write PXF: Component: '{}'<<< LOIO: '{}' PHIO: '{}FILE_COUNT: '{}'",
        BooleanText(written), lLOIO, phio, count);
  return oneFlush.End() && written;
}

}  // namespace qb
