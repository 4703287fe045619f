#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "platform/ProfileImage.h"
#include "support/ImageBytes.h"

namespace qb {
namespace {

/// Of the processor: what else the machine does counts nothing.
double SecondsOf(const auto& work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

TEST(ProfileImageScale, SectionOfAMillionLines_IsReadAndChangedInLinearTime) {
  std::string bytes = "[A]\n";
  for (int i = 0; i < 1'000'000; ++i) bytes += "K" + std::to_string(i) + "=v\n";
  ProfileImage image(std::move(bytes));
  const double seconds = SecondsOf([&image] {
    for (int i = 0; i < 200'000; ++i) ASSERT_EQ(image.Value("A", "k" + std::to_string(i * 5)), "v");
    for (int i = 0; i < 100'000; ++i) image.Apply({"A", "K" + std::to_string(i), {}});
    for (int i = 0; i < 100'000; ++i) image.Apply({"A", "N" + std::to_string(i), "w"});
    for (int i = 0; i < 100'000; ++i) ASSERT_EQ(image.Value("A", "K" + std::to_string(i)), std::nullopt);
  });
  // Going through all lines at each of these calls would take hours.
  EXPECT_LT(seconds, 30);
}

TEST(ProfileImageScale, MillionEqualKeys_AreRemovedInLinearTime) {
  std::string bytes = "[A]\n";
  for (int i = 0; i < 300'000; ++i) bytes += "K=v\n";
  ProfileImage image(std::move(bytes));
  const double seconds = SecondsOf([&image] {
    while (image.Value("A", "K")) image.Apply({"A", "K", {}});
  });
  EXPECT_EQ(BytesOf(image), "[A]\n");
  EXPECT_LT(seconds, 30);
}

TEST(ProfileImageScale, MillionSections_AreFoundInLinearTime) {
  std::string bytes;
  for (int i = 0; i < 500'000; ++i) bytes += "[" + std::to_string(i) + "]\nK=" + std::to_string(i) + "\n";
  ProfileImage image(std::move(bytes));
  const double seconds = SecondsOf([&image] {
    for (int i = 0; i < 500'000; ++i) ASSERT_EQ(image.Value(std::to_string(i), "K"), std::to_string(i));
  });
  EXPECT_LT(seconds, 30);
}

TEST(ProfileImageScale, MillionLinesEndedByCarriageReturnsAlone_AreReadInLinearTime) {
  std::string bytes = "[A]\r";
  for (int i = 0; i < 1'000'000; ++i) bytes += "K" + std::to_string(i) + "=v\r";
  for (const std::string end : {"", "L=w\n"}) {
    const double seconds =
        SecondsOf([&] { EXPECT_EQ(ProfileImage(bytes + end).Value("A", "K999999"), "v"); });
    EXPECT_LT(seconds, 30);
  }
}

TEST(ProfileImageScale, TwoHundredMegabytesOfOneLine_AreHeldAndRead) {
  constexpr std::size_t kLength = 200'000'000;
  for (const std::string start : {"[", "[A]\nK=", "\xC4"}) {
    std::string bytes = start;
    bytes.resize(kLength, 'x');
    ProfileImage image(std::move(bytes));
    EXPECT_EQ(image.Value("A", "K").has_value(), start == "[A]\nK=");
    EXPECT_EQ(image.Value("A", "L"), std::nullopt);
    EXPECT_EQ(image.ByteLength(), kLength);
    image.Apply({"B", "K", "1"});
    EXPECT_EQ(image.Value("B", "K"), "1");
  }
}

}  // namespace
}  // namespace qb
