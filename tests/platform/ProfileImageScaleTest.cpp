#include <gtest/gtest.h>
#include <malloc.h>

#include <chrono>
#include <string>

#include "platform/ProfileImage.h"
#include "support/ImageBytes.h"

namespace qb {
namespace {

double SecondsOf(const auto& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// A package file of so many documents, of about forty lines each.
std::string Package(int documents) {
  std::string bytes = "[GLOBAL]\r\nINFOBJS=" + std::to_string(documents) + "\r\n";
  for (int i = 1; i <= documents; ++i) {
    bytes += "[" + std::to_string(i) + "]\r\nLOIO=0A1B2C3D4E5F4A5B8C7D6E5F" + std::to_string(10000000 + i) +
             "\r\n";
    for (int key = 0; key < 36; ++key) bytes += std::to_string(key) + "FILE_NAME=some name.doc\r\n";
    bytes += "\r\n[ADD" + std::to_string(i) + "]\r\nCOUNT=1\r\n1NAME=DESCRIPTION\r\n";
  }
  return bytes;
}

std::size_t BytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

TEST(ProfileImageScale, Memory_IsAtMostOneKibibyteADocumentBeyondTheFile) {
  constexpr int kDocuments = 20000;
  std::string bytes = Package(kDocuments);
  bytes.shrink_to_fit();
  const std::size_t length = bytes.size();
  const std::size_t before = BytesInUse() - bytes.capacity();
  ProfileImage image(std::move(bytes));
  for (int i = 1; i <= kDocuments; ++i) image.Apply({std::to_string(i), "PROGRESS", "UNCHANGED"});
  const std::size_t used = BytesInUse() - before;
  EXPECT_LE(used, length + std::size_t{1024} * kDocuments) << "file of " << length << " bytes";
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
