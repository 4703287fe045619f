#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "platform/ProfileImage.h"
#include "support/ImageBytes.h"

namespace qb {
namespace {

using std::operator""sv;

/// Bytes of any kind, with those that mean something in a profile file more often than others.
class Bytes {
 public:
  explicit Bytes(unsigned seed) : engine_(seed) {}

  std::size_t Below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(engine_);
  }

  std::string Some(std::size_t most) {
    constexpr std::string_view kTelling =
        "[]=;\"' \t\r\n\n\n\0\x1A\x81\xEF\xBB\xBF"
        "aAbB19"sv;
    std::string bytes;
    for (std::size_t length = Below(most + 1); length > 0; --length) {
      bytes.push_back(Below(8) == 0 ? static_cast<char>(Below(256)) : kTelling[Below(kTelling.size())]);
    }
    return bytes;
  }

 private:
  std::mt19937 engine_;
};

/// The file cut out of `before` and `after` where they differ must be one stretch of whole lines.
void ExpectOtherLinesUntouched(const std::string& before, const std::string& after) {
  std::size_t front = 0;
  while (front < before.size() && front < after.size() && before[front] == after[front]) ++front;
  std::size_t back = 0;
  while (back < before.size() - front && back < after.size() - front &&
         before[before.size() - 1 - back] == after[after.size() - 1 - back]) {
    ++back;
  }
  // At most one line is replaced and one added, and a line end given to the line before.
  const std::string_view removed = std::string_view(before).substr(front, before.size() - front - back);
  EXPECT_LE(std::count(removed.begin(), removed.end(), '\n'), 1);
}

TEST(ProfileImageFuzz, AnyBytes_AreGivenBackAndSurviveAnyChange) {
  for (unsigned seed = 1; seed <= 20'000; ++seed) {
    Bytes bytes(seed);
    const std::string content = bytes.Some(200);
    ProfileImage image(content);
    ASSERT_EQ(BytesOf(image), content) << "seed " << seed;
    for (int i = 0; i < 6; ++i) {
      const std::string section = bytes.Some(3);
      const std::string key = bytes.Some(3);
      const std::string value = bytes.Some(6);
      const ProfileChange change{section, key, value};
      if (!ProfileImage::Objection(change).empty()) continue;
      const std::string before = BytesOf(image);
      image.Apply(change);
      const std::string after = BytesOf(image);
      ASSERT_EQ(image.ByteLength(), after.size()) << "seed " << seed;
      ASSERT_FALSE(image.WouldChange(change)) << "seed " << seed;
      ExpectOtherLinesUntouched(before, after);
      // Read from the disk once more, the file says the same.
      const ProfileImage again(after);
      ASSERT_EQ(again.Value(section, key), image.Value(section, key)) << "seed " << seed;
      ASSERT_TRUE(again.Value(section, key).has_value()) << "seed " << seed;
      ASSERT_EQ(again.SectionNames().size(), image.SectionNames().size()) << "seed " << seed;
    }
  }
}

TEST(ProfileImageFuzz, AnyBytes_SurviveRemovals) {
  for (unsigned seed = 1; seed <= 20'000; ++seed) {
    Bytes bytes(seed);
    ProfileImage image(bytes.Some(200));
    for (const std::string_view section : {"a"sv, "b"sv, "1"sv, ""sv}) {
      for (const std::string_view key : {"a"sv, "b"sv, "9"sv}) {
        const std::size_t before = image.ByteLength();
        const bool would = image.WouldChange({section, key, {}});
        image.Apply({section, key, {}});
        ASSERT_EQ(image.ByteLength() < before, would) << "seed " << seed;
      }
      image.Apply({section, {}, {}});
      ASSERT_EQ(BytesOf(image).size(), image.ByteLength()) << "seed " << seed;
      ASSERT_EQ(ProfileImage(BytesOf(image)).SectionNames().size(), image.SectionNames().size())
          << "seed " << seed;
    }
  }
}

}  // namespace
}  // namespace qb
