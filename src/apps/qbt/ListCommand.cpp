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

struct Row {
  const ListedDocument& document;
  CState state;
};

Json DocumentJson(const PackageContents& contents, const Row& row) {
  const PackageSource& source = contents.Source();
  const ListedVersion* shown = row.document.Shown();
  return {{"number", row.document.number},
          {"name", source.Text(row.document.technicalName.bytes)},
          {"guid", source.Text(row.document.guid.bytes)},
          {"progress", Word(ProgressOf(row.state))},
          {"state", row.state.ExternalizeState()},
          {"format", source.Text(contents.Format(row.document))},
          {"process", source.Text(row.document.process.bytes)},
          {"title", contents.Title(row.document, "DST_CURR")},
          {"sourceTitle", contents.Title(row.document, "SRC_CURR")},
          {"files", shown == nullptr ? 0 : shown->FileCount()}};
}

std::string AsTable(const PackageContents& contents, const std::vector<Row>& rows) {
  Table table({{"No", true}, {"Document"}, {"Progress"}, {"Format"}, {"Files", true}, {"Title"}});
  for (const Row& row : rows) {
    const ListedVersion* shown = row.document.Shown();
    std::string title = contents.Title(row.document, "DST_CURR");
    if (title.empty()) title = contents.Title(row.document, "SRC_CURR");
    table.Add({std::to_string(row.document.number), NameOf(contents, row.document),
               std::string(Word(ProgressOf(row.state))),
               contents.Source().Text(contents.Format(row.document)),
               std::to_string(shown == nullptr ? 0 : shown->FileCount()), title});
  }
  return table.Text();
}

}  // namespace

int RunList(const CommandLine& line, Terminal& terminal) {
  const PackageSource source = ReadPackage(FindPackage(line.package));
  const PackageContents contents(source);
  const std::optional<Progress> only = ProgressNamed(line.state);
  std::vector<Row> rows;
  for (const ListedDocument& document : contents.Documents()) {
    const CState state = contents.State(document);
    if (!only || ProgressOf(state) == *only) rows.push_back({document, state});
  }
  if (!line.json) {
    terminal.Write(AsTable(contents, rows));
    return exitcode::kFine;
  }
  Json documents = Json::array();
  for (const Row& row : rows) documents.push_back(DocumentJson(contents, row));
  terminal.Write(JsonText({{"package", ShownPath(source.Path())},
                           {"title", source.Value("GLOBAL", "TITLE")},
                           {"from", source.Value("GLOBAL", "SRCLANGUAGE")},
                           {"to", source.Value("GLOBAL", "DSTLANGUAGE")},
                           {"documents", std::move(documents)}}));
  return exitcode::kFine;
}

}  // namespace qb
