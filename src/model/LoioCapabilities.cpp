#include "model/LoioCapabilities.h"

#include <array>

namespace qb {
namespace {

/// One rule; an empty text is no condition.
struct Rule {
  std::string_view process;
  std::string_view format;
  std::string_view otherFormat;
  LoioCapabilities capabilities;
};

constexpr bool T = true;
constexpr bool o = false;

/// The first rule that fits decides.
// clang-format off: the columns are bridge, HTML editor, notepad, title property, TRADOS, title to set, link,
// single
constexpr std::array<Rule, 12> kRules{{
    {"DOC_HTML", "DOC", "", {T, o, o, T, T, o, T, o}},
    {"PPT_HTML", "PPT", "", {T, o, o, T, T, o, T, o}},
    {"", "DOC", "", {T, o, o, T, T, T, T, o}},
    {"", "PPT", "", {T, o, o, T, T, T, T, o}},
    {"VSD_HTML", "VSD", "", {T, o, o, T, o, o, o, o}},
    {"HTML", "HTML", "HTM", {T, T, o, o, o, o, T, T}},
    {"THTM", "", "", {o, o, T, o, o, T, T, o}},
    {"", "HTM", "", {o, T, o, o, o, o, T, o}},
    {"JS", "JS", "", {}},
    {"CSS", "CSS", "", {}},
    {"PAW_XML", "", "", {o, o, o, o, o, T, o, o}},
    {"", "", "", {}},
}};
// clang-format on

bool Fits(const Rule& rule, std::string_view process, std::string_view format) {
  if (!rule.process.empty() && rule.process != process) return false;
  if (rule.format.empty() || rule.format == format) return true;
  return !rule.otherFormat.empty() && rule.otherFormat == format;
}

}  // namespace

LoioCapabilities CapabilitiesOf(std::string_view process, std::string_view format) {
  for (const Rule& rule : kRules) {
    if (Fits(rule, process, format)) return rule.capabilities;
  }
  return {};
}

}  // namespace qb
