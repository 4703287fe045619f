#include <fmt/format.h>

#include "apps/qbt/Commands.h"
#include "apps/qbt/DocumentNames.h"
#include "apps/qbt/ExitCode.h"
#include "apps/qbt/Json.h"
#include "apps/qbt/PackageArgument.h"
#include "apps/qbt/PackageCheck.h"
#include "foundation/gRvdFile.h"

namespace qb {
namespace {

std::string_view SeverityWord(const Finding& finding) {
  return finding.severity == Severity::kError ? "error" : "warning";
}

/// The name of the finding's document; empty if it is about none.
std::string DocumentOf(const PackageContents& contents, const Finding& finding) {
  const ListedDocument* document = contents.Document(finding.document);
  return document == nullptr ? std::string() : NameOf(contents, *document);
}

Json AsJson(const PackageContents& contents, const Findings& findings) {
  Json list = Json::array();
  for (const Finding& finding : findings.List()) {
    Json each = {{"severity", SeverityWord(finding)}, {"code", finding.code}, {"message", finding.message}};
    if (finding.line != 0) each["line"] = finding.line;
    if (finding.document != 0) {
      each["number"] = finding.document;
      each["document"] = DocumentOf(contents, finding);
    }
    list.push_back(std::move(each));
  }
  return {{"package", ShownPath(contents.Source().Path())},
          {"documents", contents.Documents().size()},
          {"errors", findings.Count(Severity::kError)},
          {"warnings", findings.Count(Severity::kWarning)},
          {"findings", std::move(list)}};
}

/// Lines as compilers write them, so that editors and build services understand them.
std::string AsLines(const PackageContents& contents, const Findings& findings) {
  const std::string file = ShownPath(contents.Source().Path());
  std::string text;
  for (const Finding& finding : findings.List()) {
    const std::string place = finding.line == 0 ? file : fmt::format("{}:{}", file, finding.line);
    const std::string document = DocumentOf(contents, finding);
    text += Printable(fmt::format("{}: {}: {}{}{} [{}]", place, SeverityWord(finding), document,
                                  document.empty() ? "" : ": ", finding.message, finding.code)) +
            '\n';
  }
  const std::size_t errors = findings.Count(Severity::kError);
  const std::size_t warnings = findings.Count(Severity::kWarning);
  const std::size_t documents = contents.Documents().size();
  const auto counted = [](std::size_t count, std::string_view thing) {
    return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
  };
  return text +
         Printable(fmt::format("{}: {}, {}, {}", file, counted(documents, "document"),
                               counted(errors, "error"), counted(warnings, "warning"))) +
         '\n';
}

}  // namespace

int RunCheck(const CommandLine& line, Terminal& terminal) {
  const PackageSource source = ReadPackage(FindPackage(line.package));
  const PackageContents contents(source);
  const Findings findings = CheckPackage(contents);
  terminal.Write(line.json ? JsonText(AsJson(contents, findings)) : AsLines(contents, findings));
  const bool failed = findings.Count(Severity::kError) > 0 || (line.strict && !findings.List().empty());
  return failed ? exitcode::kRefused : exitcode::kFine;
}

}  // namespace qb
