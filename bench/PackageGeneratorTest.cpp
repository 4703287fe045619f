#include <gmock/gmock.h>

#include <set>
#include <string>

#include "bench/LimitPass.h"
#include "bench/OpenSession.h"
#include "bench/PackageGenerator.h"
#include "model/CLoioEntry.h"

namespace qb {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(PackageGenerator, DocumentKeys_AreUniqueAndHold32HexadecimalDigits) {
  std::set<std::string> keys;
  for (int document = 1; document <= 1000; ++document) {
    const std::string key = DocumentKey(document);
    EXPECT_EQ(32U, key.size());
    EXPECT_EQ(std::string::npos, key.find_first_not_of("0123456789ABCDEF"));
    keys.insert(key);
  }
  EXPECT_EQ(1000U, keys.size());
}

TEST(PackageGenerator, PackageBytes_AreFresh_WithTwoPropertySectionsADocument) {
  const std::string bytes = PackageBytes(3);
  EXPECT_THAT(bytes, HasSubstr("INFOBJS=3\r\n"));
  EXPECT_THAT(bytes, HasSubstr("\r\n[3]\r\n"));
  EXPECT_THAT(bytes, Not(HasSubstr("\r\n[4]\r\n")));
  EXPECT_THAT(bytes, HasSubstr("\r\n[ADD6]\r\n"));
  EXPECT_THAT(bytes, Not(HasSubstr("\r\n[ADD7]\r\n")));
  EXPECT_THAT(bytes, Not(HasSubstr("TOUCHED")));
  EXPECT_THAT(bytes, Not(HasSubstr("PROGRESS")));
}

TEST(OpenSession, Open_BringsInEveryDocumentWithTwoVersionsOfTwoFilesAndOneProperty) {
  OpenSession session(5);
  session.Open();
  for (int document = 1; document <= 5; ++document) {
    const CLoioEntry& loio = *gLoios->Item(DocumentKey(document));
    ASSERT_EQ(2U, loio.PHIOs().size());
    EXPECT_EQ("UNCHANGED", loio.state->ExternalizeState());
  }
}

TEST(OpenSession, MarkCompleted_StandsInTheFile) {
  OpenSession session(5);
  session.Open();
  session.MarkCompleted(4);
  EXPECT_EQ("COMPLETE", OpenSession::Entry(OpenSession::kPackage, "4", "PROGRESS"));
  EXPECT_EQ("UNCHANGED", OpenSession::Entry(OpenSession::kPackage, "3", "PROGRESS"));
}

TEST(LimitPass, WritesTheSameBytes_AndItsHashFollowsTheKeys) {
  OpenSession session(2);
  const std::uint64_t hash = LimitPass(session.PackageFile(), session.OtherFile());
  EXPECT_EQ(ReadWhole(session.PackageFile()), ReadWhole(session.OtherFile()));
  WriteAndSync(session.PackageFile(), PackageBytes(2) + "[MORE]\r\nKEY=1");
  EXPECT_NE(hash, LimitPass(session.PackageFile(), session.OtherFile()));
  EXPECT_EQ(ReadWhole(session.PackageFile()), ReadWhole(session.OtherFile()));
}

}  // namespace
}  // namespace qb
