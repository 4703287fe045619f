#include <gtest/gtest.h>
#include <malloc.h>

#include <string>
#include <utility>

#include "platform/ProfileImage.h"

namespace qb {
namespace {

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

TEST(ProfileImageMemory, Memory_IsAtMostOneKibibyteADocumentBeyondTheFile) {
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

}  // namespace
}  // namespace qb
