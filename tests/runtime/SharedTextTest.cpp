#include <gtest/gtest.h>

#include "runtime/KeyIndex.h"
#include "runtime/SharedText.h"

namespace qb {
namespace {

TEST(SharedTextTest, Empty_HasNoCharacters) {
  for (const SharedText& text : {SharedText(), SharedText(""), SharedText(std::string())}) {
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.size(), 0U);
    EXPECT_EQ(text, "");
    EXPECT_EQ(text, SharedText());
  }
}

TEST(SharedTextTest, Characters_AreKeptWhole) {
  for (const std::string& characters : {std::string("a"), std::string("a\0b", 3), std::string(64, 'x'),
                                        std::string(65, 'y'), std::string(1'000'000, 'z'),
                                        std::string("Gr\xC3\xB6\xC3\x9F"
                                                    "e")}) {
    const SharedText text(characters);
    EXPECT_EQ(text.View(), characters);
    EXPECT_EQ(std::string(text), characters);
    EXPECT_EQ(text.size(), characters.size());
  }
}

TEST(SharedTextTest, Copies_ShareAndOutliveTheFirst) {
  auto first = std::make_unique<SharedText>("some text");
  const SharedText copy = *first;
  EXPECT_EQ(copy.View().data(), first->View().data());
  first.reset();
  EXPECT_EQ(copy, "some text");
}

TEST(SharedTextTest, EqualTextsMadeInARow_Share) {
  const SharedText first(std::string("A0B1"));
  const SharedText second(std::string("A0B1"));
  EXPECT_EQ(first.View().data(), second.View().data());
}

TEST(SharedTextTest, Assignment_LeavesOtherCopiesAlone) {
  SharedText text = "one";
  const SharedText copy = text;
  text = std::string("two");
  EXPECT_EQ(text, "two");
  EXPECT_EQ(copy, "one");
  text = text;  // NOLINT: on purpose
  EXPECT_EQ(text, "two");
  text.clear();
  EXPECT_TRUE(text.empty());
  text = "three";
  const SharedText moved = std::move(text);
  EXPECT_EQ(moved, "three");
}

TEST(SharedTextTest, ManyTexts_StayApart) {
  std::vector<SharedText> texts;
  for (int i = 0; i < 10'000; ++i) texts.emplace_back("text " + std::to_string(i));
  for (int i = 0; i < 10'000; ++i) {
    ASSERT_EQ(texts[static_cast<std::size_t>(i)], "text " + std::to_string(i));
  }
}

TEST(SharedTextTest, Sums_AreTexts) {
  const SharedText text = "b";
  EXPECT_EQ(text + "c", "bc");
  EXPECT_EQ("a" + text, "ab");
  EXPECT_EQ(std::string("a") + text, "ab");
  EXPECT_EQ(text + text, "bb");
  EXPECT_EQ(fmt::format("<{}>", text), "<b>");
}

struct Thing {
  const SharedText& Key() const { return key; }
  SharedText key;
};

TEST(KeyIndexTest, Things_AreFoundByTheirKey) {
  Thing first{"A"};
  Thing second{"B"};
  Thing doubled{"A"};
  KeyIndex<Thing> index;
  EXPECT_TRUE(index.insert(&first).second);
  EXPECT_TRUE(index.insert(&second).second);
  EXPECT_FALSE(index.insert(&doubled).second);
  EXPECT_EQ(*index.find(std::string_view("B")), &second);
  EXPECT_FALSE(index.contains(std::string_view("b")));
  index.erase(&first);
  EXPECT_FALSE(index.contains(std::string_view("A")));
}

}  // namespace
}  // namespace qb
