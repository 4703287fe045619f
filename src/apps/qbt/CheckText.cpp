#include <fmt/format.h>

#include "apps/qbt/PackageCheck.h"
#include "platform/Platform.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::size_t kShownCharacters = 40;

std::string Shown(const PackageSource& source, std::string_view bytes) {
  return std::string(FirstCharacters(source.Text(bytes), kShownCharacters));
}

/// The bytes of a text that mean nothing in the code page, as hexadecimal numbers; empty if all mean
/// something.
std::string MeaninglessBytes(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    if (!IsPrivateCharacter(character)) continue;
    bytes += fmt::format("{}{:02X}", bytes.empty() ? "" : " ", static_cast<unsigned>(character & 0xFFU));
  }
  return bytes;
}

void CheckEncoding(const PackageSource& source, Findings& findings) {
  const std::string& bytes = source.Bytes();
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    findings.Error("utf-16", {1, 0}, "the file is UTF-16, which the program cannot read");
    return;
  }
  if (bytes.starts_with("\xEF\xBB\xBF") && source.TextCodePage() != kUtf8) {
    findings.Error(
        "utf-8", {1, 0},
        fmt::format("the file is marked as UTF-8, but is read in code page {}", source.TextCodePage()));
  }
  if (bytes.find('\0') != std::string::npos) {
    findings.Error("nul-byte", {},
                   "the file holds a NUL byte; what stands behind it in its line is never read");
  }
}

/// Checks the name or the value of a line.
void CheckBytes(const PackageSource& source, std::string_view bytes, std::uint32_t line, Findings& findings) {
  if (IsAscii(bytes)) return;
  const std::string text = source.Text(bytes);
  const std::string meaningless = MeaninglessBytes(text);
  if (!meaningless.empty()) {
    findings.Error("code-page", {line, 0},
                   fmt::format("code page {} cannot hold this text: the bytes {} mean nothing in it",
                               source.TextCodePage(), meaningless));
  } else if (source.TextCodePage() != kUtf8 && IsUtf8(bytes)) {
    findings.Warn(
        "code-page-doubt", {line, 0},
        fmt::format("this text looks like UTF-8, but is read in code page {}", source.TextCodePage()));
  }
}

void CheckSections(const PackageSource& source, Findings& findings) {
  const bool isAscii = IsAscii(source.Bytes());
  for (const PackageSource::Section& section : source.Sections()) {
    const auto entries = source.Entries(section);
    if (section.line == 0 && !entries.empty()) {
      findings.Error("no-section", {entries.front().line, 0},
                     fmt::format("\"{}\" stands in front of the first section, where it is never read",
                                 Shown(source, entries.front().name)));
    }
    if (section.shadowed) {
      findings.Error("section-doubled", {section.line, 0},
                     fmt::format("a section [{}] stands in line {} already; this one is never read",
                                 Shown(source, section.name), source.Find(section.name)->line));
    }
    if (!isAscii) CheckBytes(source, section.name, section.line, findings);
    for (const PackageEntry& entry : entries) {
      if (!entry.hasSign) {
        findings.Error(
            "ill-formed-line", {entry.line, 0},
            fmt::format("\"{}\" is neither a section nor a key with its value", Shown(source, entry.name)));
      }
      if (isAscii) continue;
      CheckBytes(source, entry.name, entry.line, findings);
      CheckBytes(source, entry.value, entry.line, findings);
    }
  }
}

void CheckDoubledKeys(const PackageContents& contents, Findings& findings) {
  const PackageSource& source = contents.Source();
  for (const ListedDocument& document : contents.Documents()) {
    for (const DoubledKey& doubled : document.doubled) {
      findings.Error("key-doubled", {doubled.entry.line, document.number},
                     fmt::format("the key {} stands in line {} already; this one is never read",
                                 Shown(source, doubled.entry.name), doubled.firstLine));
    }
  }
}

void CheckLength(const PackageSource& source, Findings& findings) {
  const PackageEntry* stated = source.Find(source.Find("GLOBAL"), "FILESIZE");
  if (stated == nullptr || stated->value.empty()) {
    findings.Warn("filesize-missing", {}, "FILESIZE is missing");
    return;
  }
  const std::string size = fmt::format("{:08}", source.Bytes().size());
  if (stated->value == size) return;
  findings.Error("filesize-wrong", {stated->line, 0},
                 fmt::format("FILESIZE says {}, the file has {} bytes", Shown(source, stated->value), size));
}

}  // namespace

void CheckText(const PackageContents& contents, Findings& findings) {
  CheckEncoding(contents.Source(), findings);
  CheckSections(contents.Source(), findings);
  CheckDoubledKeys(contents, findings);
  CheckLength(contents.Source(), findings);
}

}  // namespace qb
