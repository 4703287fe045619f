#include "support/PackageBuilder.h"

#include <fmt/format.h>

#include <algorithm>

namespace qb {

PackageBuilder::PackageBuilder() {
  In("GLOBAL")
      .Set("TITLE", "A package")
      .Set("SRCLANGUAGE", "DE")
      .Set("DSTLANGUAGE", "EN")
      .Set("INFOBJS", "0");
  In("TRANS").Set("TRANSTYPE", "GEN");
}

PackageBuilder& PackageBuilder::Loio(std::string_view guid, std::string_view process,
                                     std::string_view progress) {
  const std::string number = std::to_string(++loios_);
  In("GLOBAL").Set("INFOBJS", number);
  In(number).Set("LOIO", guid).Set("CLASS", "DOCUMENT").Set("RVD_TECH_NAME", guid).Set("PROCESS", process);
  if (!progress.empty()) Set("PROGRESS", progress);
  loio_ = current_;
  phios_ = 0;
  return *this;
}

PackageBuilder& PackageBuilder::Phio(std::string_view role, std::string_view path, std::string_view format,
                                     std::string_view description) {
  current_ = loio_;
  const std::string phio = std::to_string(++phios_);
  fileCount_ = 0;
  properties_ = 0;
  path_ = path;
  Set("PHIO_COUNT", phio);
  Set(phio + "PHIO", fmt::format("{}P{}", sections_[loio_].name, phio));
  Set(phio + "CLASS", "DOCUMENT").Set(phio + "ROLE", role).Set(phio + "PATH", path);
  Set(phio + "STATE", role == "DST_CURR" ? "UNCHANGED" : "READONLY");
  Set(phio + "DOCUMENT_FORMAT", format).Set(phio + "DESCRIPTION", description);
  return Set(phio + "FILE_COUNT", "0");
}

PackageBuilder& PackageBuilder::File(std::string_view name, std::string_view format) {
  current_ = loio_;
  const int file = ++fileCount_;
  files_.push_back(fmt::format("{}\\{}", path_, name));
  Set(fmt::format("{}FILE_COUNT", phios_), std::to_string(file));
  Set(fmt::format("{}FILE_NAME{}", phios_, file), name).Set(fmt::format("{}FORMAT{}", phios_, file), format);
  return Set(fmt::format("{}SHORT_NAME{}", phios_, file), name);
}

PackageBuilder& PackageBuilder::Property(std::string_view name, std::string_view value,
                                         std::string_view info) {
  if (++properties_ == 1) {
    current_ = loio_;
    Set(fmt::format("{}PROPSECTION", phios_), fmt::format("ADD{}", ++lists_));
  }
  In(fmt::format("ADD{}", lists_)).Set("COUNT", std::to_string(properties_));
  Set(fmt::format("{}NAME", properties_), name).Set(fmt::format("{}VALUE", properties_), value);
  Set(fmt::format("{}INFO", properties_), info);
  current_ = loio_;
  return *this;
}

PackageBuilder& PackageBuilder::In(std::string_view section) {
  const auto found = std::find_if(sections_.begin(), sections_.end(),
                                  [section](const Section& each) { return each.name == section; });
  current_ = static_cast<std::size_t>(found - sections_.begin());
  if (found == sections_.end()) sections_.push_back({std::string(section), {}});
  return *this;
}

PackageBuilder& PackageBuilder::Set(std::string_view key, std::string_view value) {
  auto& entries = Current().entries;
  const auto found =
      std::find_if(entries.begin(), entries.end(), [key](const Entry& each) { return each.key == key; });
  if (found == entries.end()) {
    entries.push_back({std::string(key), std::string(value)});
  } else {
    found->value = value;
  }
  return *this;
}

PackageBuilder& PackageBuilder::Without(std::string_view key) {
  std::erase_if(Current().entries, [key](const Entry& each) { return each.key == key; });
  return *this;
}

PackageBuilder& PackageBuilder::Line(std::string_view line) {
  Current().entries.push_back({{}, std::string(line)});
  return *this;
}

PackageBuilder& PackageBuilder::LineEnds(std::string_view lineEnd) {
  lineEnd_ = lineEnd;
  return *this;
}

std::string PackageBuilder::Text() const {
  std::string text;
  for (const Section& section : sections_) {
    if (!text.empty()) text += lineEnd_;
    text += fmt::format("[{}]{}", section.name, lineEnd_);
    for (const Entry& entry : section.entries) {
      if (!entry.key.empty()) text += entry.key + "=";
      text += entry.value + lineEnd_;
    }
  }
  return text;
}

}  // namespace qb
