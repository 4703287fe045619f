#include <fmt/format.h>

#include <cmath>

#include "apps/qbt/Commands.h"
#include "apps/qbt/ExitCode.h"
#include "apps/qbt/Json.h"
#include "apps/qbt/PackageArgument.h"
#include "apps/qbt/PackageStatus.h"
#include "apps/qbt/Table.h"
#include "apps/qbt/Terminal.h"

namespace qb {
namespace {

/// Rounded down to a tenth, so that 100 means all.
double ShownPercent(double percent) {
  constexpr double kTenths = 10.0;
  return std::floor(percent * kTenths) / kTenths;
}

Json TallyJson(const ProgressTally& tally) {
  Json progress = Json::object();
  for (const Progress each : kAllProgress) {
    progress[std::string(Word(each))] = {{"documents", tally[each].documents}, {"files", tally[each].files}};
  }
  const Tally all = tally.All();
  return {{"documents", all.documents},
          {"files", all.files},
          {"percentCompleted", ShownPercent(tally.PercentCompleted())},
          {"progress", std::move(progress)}};
}

std::string AsJson(const PackageSource& source, const PackageStatus& status) {
  Json result = {{"package", ShownPath(source.Path())},
                 {"title", source.Value("GLOBAL", "TITLE")},
                 {"from", source.Value("GLOBAL", "SRCLANGUAGE")},
                 {"to", source.Value("GLOBAL", "DSTLANGUAGE")}};
  result.update(TallyJson(status.all));
  Json formats = Json::object();
  for (const auto& [format, tally] : status.formats) formats[format] = TallyJson(tally);
  result["formats"] = std::move(formats);
  result["states"] = Json(status.states);
  return JsonText(result);
}

std::string AsTables(const PackageSource& source, const PackageStatus& status) {
  std::string text = fmt::format("{} ({} to {})\n\n", Printable(source.Value("GLOBAL", "TITLE")),
                                 Printable(source.Value("GLOBAL", "SRCLANGUAGE")),
                                 Printable(source.Value("GLOBAL", "DSTLANGUAGE")));
  Table progress({{"Progress"}, {"Documents", true}, {"Files", true}});
  for (const Progress each : kAllProgress) {
    progress.Add({std::string(Word(each)), std::to_string(status.all[each].documents),
                  std::to_string(status.all[each].files)});
  }
  const Tally all = status.all.All();
  progress.Add({"all", std::to_string(all.documents), std::to_string(all.files)});
  text += progress.Text() + '\n';
  Table formats({{"Format"}, {"Documents", true}, {"Files", true}, {"Completed", true}, {"Percent", true}});
  for (const auto& [format, tally] : status.formats) {
    const Tally ofFormat = tally.All();
    formats.Add({format.empty() ? "-" : format, std::to_string(ofFormat.documents),
                 std::to_string(ofFormat.files), std::to_string(tally[Progress::kCompleted].documents),
                 fmt::format("{:.1f}", ShownPercent(tally.PercentCompleted()))});
  }
  if (!formats.IsEmpty()) text += formats.Text() + '\n';
  return text + fmt::format("{:.1f} % completed\n", ShownPercent(status.all.PercentCompleted()));
}

}  // namespace

int RunStatus(const CommandLine& line, Terminal& terminal) {
  const PackageSource source = ReadPackage(FindPackage(line.package));
  const PackageContents contents(source);
  const PackageStatus status = StatusOf(contents);
  terminal.Write(line.json ? AsJson(source, status) : AsTables(source, status));
  return exitcode::kFine;
}

}  // namespace qb
