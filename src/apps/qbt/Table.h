#pragma once

#include <string>
#include <vector>

namespace qb {

/// Rows of text under headings, laid out in aligned columns.
class Table {
 public:
  struct Column {
    std::string heading;
    bool isNumber = false;  ///< numbers stand at the right of their column
  };

  explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

  /// Adds a row with one text for each column.
  void Add(std::vector<std::string> row);
  bool IsEmpty() const { return rows_.empty(); }
  /// The lines, headings first unless all are empty; control characters are replaced.
  std::string Text() const;

 private:
  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace qb
