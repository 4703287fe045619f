#include <gmock/gmock.h>

#include "support/Raises.h"
#include "ui/PlainForm.h"
#include "ui/controls/ListView.h"

namespace qb {
namespace {

using ::testing::_;
using ::testing::InSequence;
using ::testing::Ref;
using ::testing::StrictMock;

class MockObserver : public ListViewObserver {
 public:
  MOCK_METHOD(void, RowAdded, (ListRow&), (override));
  MOCK_METHOD(void, RowChanged, (ListRow&), (override));
  MOCK_METHOD(void, RowsCleared, (), (override));
  MOCK_METHOD(void, RowSelectionChanged, (), (override));
};

class ListViewTest : public ::testing::Test {
 protected:
  PlainForm form_;
  ListView list_{form_, "list", {{"a", "A", 10}, {"b", "B", 20}}};
};

TEST_F(ListViewTest, Add_RowStandsBehindTheOthersWithItsIconTwice) {
  list_.Add("A", "text", 3);
  ListRow& row = list_.Add("B", "other", 4);
  EXPECT_EQ(list_.AllRows().size(), 2U);
  EXPECT_EQ(list_.AllRows()[1].get(), &row);
  EXPECT_EQ(row.Key(), "B");
  EXPECT_EQ(row.Text(), "other");
  EXPECT_EQ(row.Icon(), 4);
  EXPECT_EQ(row.SmallIcon(), 4);
  EXPECT_EQ(&list_.Rows("B"), &row);
}

TEST_F(ListViewTest, Keys_AreExactAndUsedOnce) {
  list_.Add("A", "", 0);
  EXPECT_THAT([&] { list_.Add("A", "", 0); }, RaisesNumber(457));
  EXPECT_THAT([&] { list_.Rows("a"); }, RaisesNumber(5));
  list_.Add("a", "", 0);
  EXPECT_EQ(list_.AllRows().size(), 2U);
}

TEST_F(ListViewTest, SubItems_CountFromOneToSix) {
  ListRow& row = list_.Add("A", "", 0);
  for (int number = 1; number <= 6; ++number) row.SetSubItems(number, std::to_string(number));
  for (int number = 1; number <= 6; ++number) EXPECT_EQ(row.SubItems(number), std::to_string(number));
  for (const int number : {0, 7, -1}) {
    EXPECT_THAT([&] { row.SubItems(number); }, RaisesNumber(9));
    EXPECT_THAT([&] { row.SetSubItems(number, "x"); }, RaisesNumber(9));
  }
}

TEST_F(ListViewTest, Clear_TakesRowsAndSelection) {
  list_.Select(&list_.Add("A", "", 0));
  list_.Clear();
  EXPECT_TRUE(list_.AllRows().empty());
  EXPECT_EQ(list_.SelectedItem(), nullptr);
  EXPECT_THAT([&] { list_.Rows("A"); }, RaisesNumber(5));
  list_.Add("A", "", 0);
}

TEST_F(ListViewTest, SetHeading_CountsFromOne) {
  list_.SetHeading(1, "Format");
  EXPECT_EQ(list_.Columns()[0].heading, "Format");
  EXPECT_EQ(list_.Columns()[1].heading, "B");
  for (const int position : {0, 3}) EXPECT_THAT([&] { list_.SetHeading(position, ""); }, RaisesNumber(9));
}

TEST_F(ListViewTest, Observer_IsToldOfEveryChangeOnce) {
  StrictMock<MockObserver> observer;
  list_.Observer = &observer;
  InSequence inOrder;
  EXPECT_CALL(observer, RowAdded(_));
  ListRow& row = list_.Add("A", "", 0);
  EXPECT_CALL(observer, RowChanged(Ref(row))).Times(2);
  row.SetSubItems(2, "x");
  row.SetSubItems(2, "x");
  row.SetSmallIcon(1);
  row.SetSmallIcon(1);
  EXPECT_CALL(observer, RowSelectionChanged());
  list_.Select(&row);
  list_.Select(&row);
  EXPECT_CALL(observer, RowsCleared());
  list_.Clear();
}

}  // namespace
}  // namespace qb
