#include "apps/qbt/NewPackage.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <random>
#include <set>

#include "apps/qbt/ExitCode.h"
#include "apps/qbt/PackageArgument.h"
#include "apps/qbt/Terminal.h"
#include "platform/Platform.h"
#include "platform/ProfileLine.h"
#include "runtime/Text.h"

namespace qb {
namespace {

namespace fs = std::filesystem;

/// 32 random hexadecimal digits.
std::string NewGuid() {
  static std::random_device device;
  std::uniform_int_distribution<std::uint64_t> any;
  return fmt::format("{:016X}{:016X}", any(device), any(device));
}

/// Capital letters, digits and "_" for anything else, so that it can be typed anywhere.
std::string TechnicalWord(const fs::path& path) {
  std::string word;
  for (const char byte : path.string()) {
    const auto letter = static_cast<unsigned char>(byte);
    const bool isPlain = letter < 0x80U && std::isalnum(letter) != 0;
    word += isPlain ? static_cast<char>(std::toupper(letter)) : '_';
  }
  return word;
}

/// Names for the documents, the shortest that tell them apart: by file, by folder and file, by extension too.
class TechnicalNames {
 public:
  explicit TechnicalNames(const std::vector<SourceDocument>& documents) {
    for (const SourceDocument& document : documents) {
      for (const std::string& name : Candidates(document)) ++uses_[name];
    }
  }

  std::string NameFor(const SourceDocument& document) {
    const std::vector<std::string> candidates = Candidates(document);
    for (const std::string& name : candidates) {
      if (uses_[name] == 1 && taken_.insert(name).second) return name;
    }
    std::string name = candidates.back();
    for (int i = 2; !taken_.insert(name).second; ++i) name = fmt::format("{}_{}", candidates.back(), i);
    return name;
  }

 private:
  /// Each name once, the shortest first.
  static std::vector<std::string> Candidates(const SourceDocument& document) {
    const fs::path file = NativePath(document.files.front());
    const fs::path place =
        document.folder.filename() == file.stem() ? document.folder : document.folder / file.stem();
    std::vector<std::string> names{TechnicalWord(file.stem()), TechnicalWord(place),
                                   TechnicalWord(fs::path(place) += file.extension())};
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
  }

  std::map<std::string, int> uses_;
  std::set<std::string> taken_;
};

/// Puts the lines of a package file together.
class PackageWriter {
 public:
  explicit PackageWriter(CodePage codePage) : codePage_(codePage) {}

  void Section(std::string_view name) {
    text_ += fmt::format("{}[{}]\r\n", text_.empty() ? "" : "\r\n", name);
  }

  /// Adds a key; its value must come back from the file as it is.
  void Key(std::string_view key, std::string_view value) {
    TextCodec& codec = *ThePlatform().codec;
    if (!codec.CanEncode(value, codePage_)) {
      throw CommandFailure(exitcode::kUnreadable,
                           fmt::format("the code page {} of the target language cannot hold \"{}\"",
                                       codePage_, Printable(value)));
    }
    const std::string bytes = codec.Encode(value, codePage_);
    if (bytes.find_first_of("\r\n") != std::string::npos || Unquoted(StoredValue(bytes)) != bytes) {
      throw CommandFailure(
          exitcode::kUnreadable,
          fmt::format("a package file cannot hold \"{}\" as it is spelled", Printable(value)));
    }
    text_ += fmt::format("{}={}\r\n", key, bytes);
  }

  void Number(std::string_view key, std::size_t value) { Key(key, std::to_string(value)); }

  std::string Take() { return std::move(text_); }
  std::size_t Length() const { return text_.size(); }

 private:
  CodePage codePage_;
  std::string text_;
};

/// One language version of a document. The title stands in a property list, where it can be translated.
void WriteVersion(PackageWriter& writer, const SourceDocument& document, int number, std::size_t list) {
  const bool isTarget = number == 1;
  const auto key = [number](std::string_view word) { return fmt::format("{}{}", number, word); };
  const fs::path folder = fs::path(isTarget ? kTranslations : kSources) / document.folder;
  writer.Key(key("PHIO"), NewGuid());
  writer.Key(key("CLASS"), "DOCUMENT");
  writer.Key(key("ROLE"), isTarget ? "DST_CURR" : "SRC_CURR");
  writer.Key(key("PATH"), KeptRelativePath(folder));
  writer.Key(key("STATE"), isTarget ? "UNCHANGED" : "READONLY");
  writer.Key(key("DOCUMENT_FORMAT"), KindOf(NativePath(document.files.front())).format);
  writer.Key(key("DESCRIPTION"), "");
  writer.Key(key("PROPSECTION"), fmt::format("ADD{}", list));
  writer.Number(key("FILE_COUNT"), document.files.size());
  for (std::size_t i = 1; i <= document.files.size(); ++i) {
    const std::string& file = document.files[i - 1];
    const auto fileKey = [&](std::string_view word) { return fmt::format("{}{}{}", number, word, i); };
    writer.Key(fileKey("FILE_NAME"), file);
    writer.Key(fileKey("FORMAT"), i == 1 ? "PRIM" : "");
    writer.Key(fileKey("SHORT_NAME"), file);
  }
}

void WriteTitle(PackageWriter& writer, const std::string& title, std::size_t list) {
  writer.Section(fmt::format("ADD{}", list));
  writer.Number("COUNT", 1);
  writer.Key("1NAME", "DESCRIPTION");
  writer.Key("1VALUE", title);
  writer.Key("1INFO", "");
}

}  // namespace

std::string PackageText(const NewPackage& package) {
  PackageWriter writer(ThePlatform().codec->CodePageOfLanguage(package.targetLanguage));
  constexpr std::string_view kNoSize = "FILESIZE=00000000";
  writer.Section("GLOBAL");
  writer.Key("TITLE", package.title);
  writer.Key("SRCLANGUAGE", package.sourceLanguage);
  writer.Key("DSTLANGUAGE", package.targetLanguage);
  writer.Number("INFOBJS", package.documents.size());
  const std::size_t sizeAt = writer.Length();
  writer.Key("FILESIZE", "00000000");
  writer.Section("TRANS");
  for (const auto& [key, value] :
       {std::pair{"TRANSTYPE", "GEN"}, std::pair{"QBT_WF", package.localization ? "LOCAL" : "TRANS"},
        std::pair{"TERMINOLOGY", ""}, std::pair{"TRANSMEMORY", ""}, std::pair{"RO_PREFIX", "old"},
        std::pair{"RW_PREFIX", kTranslations}}) {
    writer.Key(key, value);
  }
  TechnicalNames names(package.documents);
  for (std::size_t i = 1; i <= package.documents.size(); ++i) {
    const SourceDocument& document = package.documents[i - 1];
    writer.Section(std::to_string(i));
    writer.Key("LOIO", NewGuid());
    writer.Key("CLASS", "DOCUMENT");
    writer.Key("RVD_TECH_NAME", names.NameFor(document));
    writer.Key("PROCESS", KindOf(NativePath(document.files.front())).process);
    writer.Number("MASTER", 1);
    writer.Number("SEQNR1", i);
    writer.Number("SEQNR2", 0);
    writer.Number("PHIO_COUNT", 2);
    WriteVersion(writer, document, 1, i * 2 - 1);
    WriteVersion(writer, document, 2, i * 2);
  }
  for (std::size_t i = 1; i <= package.documents.size(); ++i) {
    const std::string title = NativePath(package.documents[i - 1].files.front()).stem().string();
    WriteTitle(writer, title, i * 2 - 1);
    WriteTitle(writer, title, i * 2);
  }
  std::string text = writer.Take();
  return text.replace(sizeAt, kNoSize.size(), fmt::format("FILESIZE={:08}", text.size()));
}

}  // namespace qb
