#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/KeyIndex.h"
#include "runtime/SharedText.h"
#include "ui/controls/Control.h"

namespace qb {

class ListView;

/// One row of a list. Icons are positions in the list's image list.
class ListRow {
 public:
  static constexpr int kSubItems = 6;

  const SharedText& Key() const { return key_; }
  const SharedText& Text() const { return text_; }
  int Icon() const { return icon_; }
  int SmallIcon() const { return smallIcon_; }
  void SetSmallIcon(int icon);
  /// The text of column `number` + 1; `number` counts from 1. Raises 9 beyond the last column.
  const SharedText& SubItems(int number) const;
  void SetSubItems(int number, std::string_view text);

 private:
  friend class ListView;
  ListRow(ListView& list, std::string_view key, std::string_view text, int icon);

  ListView& list_;
  SharedText key_;
  SharedText text_;
  std::array<SharedText, kSubItems> subItems_;
  std::int16_t icon_;
  std::int16_t smallIcon_;
};

/// Told of every change of a list, at once. The renderer collects what it is told until its next turn.
class ListViewObserver {
 public:
  virtual ~ListViewObserver() = default;
  virtual void RowAdded(ListRow& row) = 0;
  virtual void RowChanged(ListRow& row) = 0;
  virtual void RowsCleared() = 0;
  virtual void RowSelectionChanged() = 0;
};

/// A flat list with columns. Keys of rows are found exactly as spelled.
class ListView : public VisibleControl {
 public:
  struct Column {
    std::string key;
    std::string heading;
    int width = 0;  ///< twips
  };

  ListView(Form& form, std::string_view name, std::vector<Column> columns)
      : VisibleControl(form, name), columns_(std::move(columns)) {}

  const std::vector<Column>& Columns() const { return columns_; }
  /// `position` counts from 1; raises 9 beyond the last.
  void SetHeading(int position, std::string_view heading);

  /// Adds a row at the end. Raises 457 for a key that is there already.
  ListRow& Add(std::string_view key, std::string_view text, int icon);
  /// Raises 5 for an unknown key, naming it.
  ListRow& Rows(std::string_view key);
  const std::vector<std::unique_ptr<ListRow>>& AllRows() const { return rows_; }
  void Clear();

  ListRow* SelectedItem() const { return selected_; }
  /// Null selects nothing.
  void Select(ListRow* row);

  std::function<void()> DblClick;
  std::function<void(int)> KeyPress;  ///< character code; 13 is Return
  std::function<void(int)> MouseUp;   ///< button: 1 left, 2 right

  ListViewObserver* Observer = nullptr;

 private:
  std::vector<Column> columns_;
  std::vector<std::unique_ptr<ListRow>> rows_;
  KeyIndex<ListRow> index_;
  ListRow* selected_ = nullptr;
};

}  // namespace qb
