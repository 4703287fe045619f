#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <unistd.h>

#include "OfficeTest.h"

namespace qb {
namespace {

constexpr const char* kA = R"(\pkg\a.doc)";
constexpr const char* kB = R"(\pkg\b.doc)";
constexpr const char* kC = R"(\pkg\c.doc)";

/// What the locks beside documents say about who has them open.
class OfficeLocksTest : public OfficeTest {
 protected:
  void Lock(const std::string& name, const std::string& content) {
    Write(R"(\pkg\.~lock.)" + name + "#", content);
  }
  std::string OwnLock(int profile) const {
    return ",me,host,21.11.2026 15:40,file://" + Profile(profile) + ";";
  }
};

TEST_F(OfficeLocksTest, ALockFileOfAnotherOfficeCountsAsOpen) {
  Lock("a.doc", ",you,host,21.11.2026 15:40,file:///home/you/.config/libreoffice/4;");
  EXPECT_EQ(1, Count(kA));
  EXPECT_EQ(0, Count(kB));
}

TEST_F(OfficeLocksTest, AnEmptyLockFileIsForTheHelperToJudge) {
  Lock("a.doc", "");
  EXPECT_EQ(0, Count(kA));
}

TEST_F(OfficeLocksTest, ALockThatADeadOfficeOfOurOwnLeftBehindDoesNotCount) {
  Lock("a.doc", OwnLock(1));
  Lock("b.doc", OwnLock(7));
  EXPECT_EQ(0, Count(kA));
  EXPECT_EQ(0, Count(kB));
}

TEST_F(OfficeLocksTest, ALockOfALivingOfficeOfOurOwnCounts) {
  Lock("a.doc", OwnLock(7));
  std::filesystem::create_directory(Profile(7));
  const int lock = open((Profile(7) + "/.quillbank-lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  ASSERT_EQ(0, flock(lock, LOCK_EX));
  EXPECT_EQ(1, Count(kA));
  close(lock);
  EXPECT_EQ(0, Count(kA));
}

TEST_F(OfficeLocksTest, ALockOfOurOwnOfficeThatIsAboutToEndDoesNotCount) {
  Script({kReady, "serve 1", "await go", R"({"event":"ended"})", "await end", "exit 0"});
  const auto other = Open(*AddGroup(kB), kB);
  Lock("c.doc", OwnLock(1));
  std::filesystem::create_directories(Profile(1));
  const int lock = open((Profile(1) + "/.quillbank-lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  ASSERT_EQ(0, flock(lock, LOCK_EX));
  Signal("go");
  RunUntil([&] { return !events_.empty(); });
  Signal("end");
  EXPECT_EQ(0, Count(kC));
  EXPECT_EQ(2U, Starts().size());
  close(lock);
}

TEST_F(OfficeLocksTest, AFileThatTheUserHasOpenInOurOfficeCountsAsOpenIfTheOfficeSaysSo) {
  Script({kReady, "serve 1", "on isOpen", R"({"id":$id,"result":{"open":true}})", "on isOpen",
          R"({"id":$id,"result":{"open":false}})", "on isOpen", R"({"id":$id,"error":{"code":"request"}})",
          "serve"});
  const auto other = Open(*AddGroup(kB), kB);
  Lock("c.doc", OwnLock(1));
  EXPECT_EQ(1, Count(kC));
  EXPECT_EQ(Native(kC).string(), Request("isOpen")["path"]);
  // A lock that is left from an office which died.
  EXPECT_EQ(0, Count(kC));
  EXPECT_EQ(0, Count(kC));
}

TEST_F(OfficeLocksTest, TheNameOfAProfileInALockMayBeEncoded) {
  std::string lock = OwnLock(1);
  lock.replace(lock.find("office"), 1, "%6F");
  Lock("a.doc", lock);
  EXPECT_EQ(0, Count(kA));
}

}  // namespace
}  // namespace qb
