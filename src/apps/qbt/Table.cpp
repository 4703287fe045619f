#include "apps/qbt/Table.h"

#include <algorithm>
#include <utility>

#include "apps/qbt/Terminal.h"

namespace qb {
namespace {
constexpr std::size_t kGap = 2;
}  // namespace

void Table::Add(std::vector<std::string> row) {
  row.resize(columns_.size());
  for (std::string& text : row) text = Printable(text);
  rows_.push_back(std::move(row));
}

std::string Table::Text() const {
  std::vector<std::string> headings;
  for (const Column& column : columns_) headings.push_back(column.heading);
  const bool hasHeadings =
      std::any_of(headings.begin(), headings.end(), [](const std::string& text) { return !text.empty(); });
  std::vector<const std::vector<std::string>*> lines;
  if (hasHeadings) lines.push_back(&headings);
  for (const auto& row : rows_) lines.push_back(&row);

  std::vector<std::size_t> widths(columns_.size());
  for (const auto* line : lines) {
    for (std::size_t i = 0; i < widths.size(); ++i) widths[i] = std::max(widths[i], ColumnsOf((*line)[i]));
  }
  std::string text;
  for (const auto* line : lines) {
    std::string laidOut;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      const std::string padding(widths[i] - ColumnsOf((*line)[i]), ' ');
      if (i > 0) laidOut.append(kGap, ' ');
      laidOut += columns_[i].isNumber ? padding + (*line)[i] : (*line)[i] + padding;
    }
    laidOut.erase(laidOut.find_last_not_of(' ') + 1);
    text += laidOut + '\n';
  }
  return text;
}

}  // namespace qb
