#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "runtime/Collection.h"
#include "support/Raises.h"

namespace qb {
namespace {

class CollectionTest : public ::testing::Test {
 protected:
  std::vector<std::string> All() const {
    std::vector<std::string> all;
    for (std::size_t i = 1; i <= collection_.Count(); ++i) all.push_back(collection_.Item(i));
    return all;
  }

  Collection<std::string> collection_;
};

using Texts = std::vector<std::string>;

TEST_F(CollectionTest, Items_KeepTheirOrder_FromPositionOne) {
  for (const char* const text : {"c", "a", "b"}) collection_.Add(text);
  EXPECT_EQ(collection_.Count(), 3U);
  EXPECT_EQ(All(), (Texts{"c", "a", "b"}));
}

TEST_F(CollectionTest, Item_ByKeyInAnyCase) {
  collection_.Add("1", "Größe");
  EXPECT_EQ(collection_.Item("GRÖßE"), "1");
  EXPECT_TRUE(collection_.Contains("größe"));
  EXPECT_FALSE(collection_.Contains("other"));
}

TEST_F(CollectionTest, EmptyKey_StandsForNone) {
  collection_.Add("1", "");
  collection_.Add("2", "");
  EXPECT_EQ(collection_.Count(), 2U);
  EXPECT_FALSE(collection_.Contains(""));
  EXPECT_EQ(Raised([this] { collection_.Item(""); }), failure::kInvalidArgument);
}

TEST_F(CollectionTest, Add_KeyAlreadyThere_Raises457AndAddsNothing) {
  collection_.Add("1", "key");
  EXPECT_EQ(Raised([this] { collection_.Add("2", "KEY"); }), failure::kKeyAlreadyThere);
  EXPECT_EQ(All(), Texts{"1"});
  EXPECT_EQ(collection_.Item("key"), "1");
}

TEST_F(CollectionTest, Item_PositionOutOfRange_Raises9) {
  collection_.Add("1");
  EXPECT_EQ(Raised([this] { collection_.Item(0U); }), failure::kIndexOutOfRange);
  EXPECT_EQ(Raised([this] { collection_.Item(2); }), failure::kIndexOutOfRange);
  EXPECT_EQ(Raised([this] { collection_.Remove(2); }), failure::kIndexOutOfRange);
}

TEST_F(CollectionTest, UnknownKey_Raises5) {
  collection_.Add("1", "key");
  EXPECT_EQ(Raised([this] { collection_.Item("other"); }), failure::kInvalidArgument);
  EXPECT_EQ(Raised([this] { collection_.Remove("other"); }), failure::kInvalidArgument);
}

TEST_F(CollectionTest, Remove_ByPosition_LetsKeysFollowTheirItems) {
  collection_.Add("1", "a");
  collection_.Add("2");
  collection_.Add("3", "c");
  collection_.Remove(1);
  EXPECT_EQ(All(), (Texts{"2", "3"}));
  EXPECT_FALSE(collection_.Contains("a"));
  EXPECT_EQ(collection_.Item("c"), "3");
  collection_.Add("4", "a");
  EXPECT_EQ(collection_.Item("A"), "4");
}

TEST_F(CollectionTest, Remove_ByKey_TakesThatItem) {
  collection_.Add("1", "a");
  collection_.Add("2", "b");
  collection_.Remove("B");
  EXPECT_EQ(All(), Texts{"1"});
}

TEST_F(CollectionTest, Clear_TakesItemsAndKeys) {
  collection_.Add("1", "a");
  collection_.Clear();
  EXPECT_EQ(collection_.Count(), 0U);
  EXPECT_FALSE(collection_.Contains("a"));
  collection_.Add("2", "a");
  EXPECT_EQ(collection_.Item("a"), "2");
}

TEST_F(CollectionTest, Item_MayBeChanged) {
  collection_.Add("1", "a");
  collection_.Item("a") = "2";
  EXPECT_EQ(collection_.Item(1), "2");
}

TEST_F(CollectionTest, Objects_AreSharedNotCopied) {
  Collection<std::shared_ptr<int>> objects;
  const auto object = std::make_shared<int>(1);
  objects.Add(object, "a");
  *objects.Item("a") = 2;
  EXPECT_EQ(*object, 2);
  objects.Remove("a");
  EXPECT_EQ(object.use_count(), 1);
}

}  // namespace
}  // namespace qb
