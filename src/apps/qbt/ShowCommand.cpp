#include <fmt/format.h>

#include "apps/qbt/Commands.h"
#include "apps/qbt/DocumentNames.h"
#include "apps/qbt/ExitCode.h"
#include "apps/qbt/Json.h"
#include "apps/qbt/PackageArgument.h"
#include "apps/qbt/Progress.h"
#include "apps/qbt/Table.h"

namespace qb {
namespace {

/// Calls `body(number, listed, entry)` for each version that counts and has a known role.
template <class Body>
void ForEachVersion(const PackageContents& contents, const ListedDocument& document, Body body) {
  const std::int32_t count = document.VersionCount();
  for (const auto& [number, version] : document.versions) {
    if (number > count) break;
    if (const auto entry = contents.Version(version)) body(number, version, *entry);
  }
}

template <class Body>
void ForEachFile(const CPhioEntry& version, Body body) {
  for (std::size_t i = 1; i <= version.Components.Count(); ++i) body(*version.Components.Item(i));
}

std::string PathOf(const CPhioEntry& version, const CPhioFile& file) {
  return ShownPath(std::string(version.GetPath()) + "\\" + std::string(file.FileName));
}

Json FilesJson(const CPhioEntry& version) {
  Json files = Json::array();
  ForEachFile(version, [&](const CPhioFile& file) {
    files.push_back({{"name", std::string(file.FileName)},
                     {"path", PathOf(version, file)},
                     {"primary", file.FileFormat == kPrimaryFormat}});
  });
  return files;
}

Json DocumentJson(const PackageContents& contents, const ListedDocument& document) {
  const PackageSource& source = contents.Source();
  const CState state = contents.State(document);
  Json versions = Json::array();
  ForEachVersion(contents, document,
                 [&](std::int32_t number, const ListedVersion& listed, const CPhioEntry& version) {
                   versions.push_back({{"number", number},
                                       {"role", source.Text(listed.role.bytes)},
                                       {"guid", source.Text(listed.guid.bytes)},
                                       {"state", source.Text(listed.state.bytes)},
                                       {"format", source.Text(listed.format.bytes)},
                                       {"path", ShownPath(source.Text(listed.path.bytes))},
                                       {"title", version.GetTitle()},
                                       {"files", FilesJson(version)}});
                 });
  return {{"number", document.number},
          {"name", source.Text(document.technicalName.bytes)},
          {"guid", source.Text(document.guid.bytes)},
          {"class", source.Text(document.documentClass.bytes)},
          {"process", source.Text(document.process.bytes)},
          {"format", source.Text(contents.Format(document))},
          {"progress", Word(ProgressOf(state))},
          {"state", state.ExternalizeState()},
          {"versions", std::move(versions)}};
}

std::string AsTables(const PackageContents& contents, const ListedDocument& document) {
  const PackageSource& source = contents.Source();
  const CState state = contents.State(document);
  Table facts({{""}, {""}});
  facts.Add({"Document", NameOf(contents, document)});
  facts.Add({"Number", std::to_string(document.number)});
  facts.Add({"GUID", source.Text(document.guid.bytes)});
  facts.Add({"Class", source.Text(document.documentClass.bytes)});
  facts.Add({"Process", source.Text(document.process.bytes)});
  facts.Add({"Progress", fmt::format("{} ({})", Word(ProgressOf(state)), state.ExternalizeState())});
  Table versions({{"Version"}, {"State"}, {"Format"}, {"Title"}});
  Table files({{"Version"}, {"File"}, {"Primary"}});
  ForEachVersion(
      contents, document, [&](std::int32_t, const ListedVersion& listed, const CPhioEntry& version) {
        const std::string role = source.Text(listed.role.bytes);
        versions.Add(
            {role, source.Text(listed.state.bytes), source.Text(listed.format.bytes), version.GetTitle()});
        ForEachFile(version, [&](const CPhioFile& file) {
          files.Add({role, PathOf(version, file), file.FileFormat == kPrimaryFormat ? "yes" : ""});
        });
      });
  std::string text = facts.Text();
  if (!versions.IsEmpty()) text += '\n' + versions.Text();
  if (!files.IsEmpty()) text += '\n' + files.Text();
  return text;
}

}  // namespace

int RunShow(const CommandLine& line, Terminal& terminal) {
  const PackageSource source = ReadPackage(FindPackage(line.package));
  const PackageContents contents(source);
  const std::vector<const ListedDocument*> documents = FindDocuments(contents, line.documents);
  if (line.json) {
    Json shown = Json::array();
    for (const ListedDocument* document : documents) shown.push_back(DocumentJson(contents, *document));
    terminal.Write(JsonText({{"package", ShownPath(source.Path())}, {"documents", std::move(shown)}}));
    return exitcode::kFine;
  }
  std::string separator;
  for (const ListedDocument* document : documents) {
    terminal.Write(separator + AsTables(contents, *document));
    separator = "\n";
  }
  return exitcode::kFine;
}

}  // namespace qb
