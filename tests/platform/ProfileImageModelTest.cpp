#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ProfileImage.h"
#include "support/ImageBytes.h"
#include "support/ReferenceProfile.h"

namespace qb {
namespace {

using std::operator""sv;

/// Draws files, names and changes from a few words, so that they meet often.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}

  std::size_t Below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(engine_);
  }

  template <std::size_t Count>
  std::string_view Of(const std::array<std::string_view, Count>& words) {
    return words[Below(Count)];
  }

  std::string_view Section() {
    return Of(std::array{"A"sv, "a"sv, " A"sv, "B"sv, "1"sv, ""sv, "ADD1"sv, "C D"sv});
  }
  std::string_view Value() {
    return Of(
        std::array{""sv, "1"sv, "v w"sv, "\"q\""sv, " x"sv, "x "sv, "'"sv, "a=b"sv, "a rather long value"sv});
  }

  std::string Key(std::size_t kinds) {
    const std::size_t number = Below(kinds);
    return (Below(2) == 0 ? "Key" : "kEY") + std::to_string(number);
  }

  std::string Line(std::size_t keys) {
    std::string line;
    switch (Below(12)) {
      case 0:
        line = "[" + std::string(Section()) + "]";
        break;
      case 1:
        line = Of(std::array{""sv, " "sv, "\t"sv, ";c=1"sv, ";[A]"sv, "text"sv, "[open"sv, "=v"sv, "x\0y"sv,
                             "]"sv});
        break;
      case 2:
        line = Key(keys);
        break;
      default:
        line = std::string(Of(std::array{""sv, " "sv, "\t"sv})) + Key(keys) +
               std::string(Of(std::array{"="sv, " = "sv})) + std::string(Value());
    }
    return line + std::string(Of(std::array{"\r\n"sv, "\r\n"sv, "\n"sv, "\r"sv, "\r\r\n"sv}));
  }

  std::string File(std::size_t lines, std::size_t keys) {
    std::string bytes(Below(8) == 0 ? "\xEF\xBB\xBF" : "");
    for (std::size_t i = 0; i < lines; ++i) bytes += Line(keys);
    if (Below(3) == 0 && bytes.ends_with('\n')) bytes.pop_back();
    return bytes;
  }

 private:
  std::mt19937 engine_;
};

void Compare(const ProfileImage& image, const ReferenceProfile& reference, std::size_t keys) {
  ASSERT_EQ(BytesOf(image), reference.Bytes());
  ASSERT_EQ(image.ByteLength(), reference.Bytes().size());
  const std::vector<std::string_view> names = image.SectionNames();
  ASSERT_EQ(std::vector<std::string>(names.begin(), names.end()), reference.SectionNames());
  for (const std::string_view section : {"a"sv, "B"sv, "1 "sv, ""sv, "add1"sv, "Z"sv}) {
    for (std::size_t key = 0; key < keys; ++key) {
      const std::string name = "KEY" + std::to_string(key);
      const std::optional<std::string_view> value = image.Value(section, name);
      ASSERT_EQ(value ? std::optional(std::string(*value)) : std::nullopt, reference.Value(section, name));
    }
  }
}

/// Makes the same random changes on the engine and on the reference and compares them after each.
void RunAgainstReference(unsigned seed, std::size_t lines, std::size_t keys, int changes) {
  SCOPED_TRACE("seed " + std::to_string(seed));
  Dice dice(seed);
  const std::string bytes = dice.File(lines, keys);
  ProfileImage image(bytes);
  ReferenceProfile reference(bytes);
  ASSERT_EQ(BytesOf(image), bytes);
  for (int i = 0; i < changes; ++i) {
    const std::string section(dice.Section());
    const std::string key = dice.Key(keys);
    ProfileChange change{section, key, dice.Value()};
    if (dice.Below(4) == 0) change.value.reset();
    if (dice.Below(20) == 0) change.key.reset();
    ASSERT_EQ(ProfileImage::Objection(change), "");
    const std::string before = BytesOf(image);
    const bool wouldChange = image.WouldChange(change);
    image.Apply(change);
    reference.Apply(change);
    ASSERT_EQ(wouldChange, BytesOf(image) != before);
    ASSERT_NO_FATAL_FAILURE(Compare(image, reference, keys));
  }
}

TEST(ProfileImageModel, SmallFiles_BehaveAsTheReference) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    ASSERT_NO_FATAL_FAILURE(RunAgainstReference(seed, seed % 40, 6, 25));
  }
}

TEST(ProfileImageModel, SectionsThatAreSearchedThroughAnIndex_BehaveAsTheReference) {
  for (unsigned seed = 1000; seed < 1005; ++seed) {
    ASSERT_NO_FATAL_FAILURE(RunAgainstReference(seed, 1000, 40, 40));
  }
}

}  // namespace
}  // namespace qb
