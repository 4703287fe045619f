#include <gtest/gtest.h>

#include <chrono>

#include "MockPlatform.h"
#include "foundation/CMyFileTime.h"
#include "support/TestPlatform.h"

namespace qb {
namespace {

using ::testing::_;
using ::testing::NiceMock;
using ::testing::Return;

class CMyFileTimeTest : public PlatformTest {
 protected:
  /// The file's last write at 2003-05-17 22:07:09 UTC.
  void WriteAtKnownTime() {
    Write(R"(\a.txt)", "text");
    using namespace std::chrono;
    const auto moment = sys_days(year(2003) / 5 / 17) + hours(22) + minutes(7) + seconds(9);
    std::filesystem::last_write_time(Native(R"(\a.txt)"), file_clock::from_sys(moment));
  }

  CMyFileTime time_;
};

TEST_F(CMyFileTimeTest, GetLastModification_ExistingFile_IsLocalTime) {
  WriteAtKnownTime();
  UseFakeClock().SetOffset(7200);
  time_.SetFile(R"(\a.txt)");
  EXPECT_EQ(time_.GetLastModification(), "20030518000709");
}

TEST_F(CMyFileTimeTest, GetLastModification_MissingFile_IsTheConstantOfNoFile) {
  time_.SetFile(R"(\none.txt)");
  EXPECT_EQ(time_.GetLastModification(), "18991230000000");
}

TEST_F(CMyFileTimeTest, GetLastModification_NoFileNameOrDirectory_IsTheConstantOfNoFile) {
  EXPECT_EQ(time_.GetLastModification(), "18991230000000");
  MakeFolder(R"(\sub)");
  time_.SetFile(R"(\sub)");
  EXPECT_EQ(time_.GetLastModification(), "18991230000000");
}

TEST_F(CMyFileTimeTest, GetCreation_ExistingFile_IsUtc) {
  UseFakeClock().SetOffset(7200);
  auto& files = Replace<NiceMock<MockFileSystem>>(ThePlatform().files);
  FileInfo info;
  info.creation = {1, 999'999'999};
  ON_CALL(files, Find(_)).WillByDefault(Return(info));
  time_.SetFile(R"(\a.txt)");
  EXPECT_EQ(time_.GetCreation(), "19700101000001");
}

TEST_F(CMyFileTimeTest, GetCreation_MissingFile_IsTheMomentOfAllZeros) {
  time_.SetFile(R"(\none.txt)");
  EXPECT_EQ(time_.GetCreation(), "16010101000000");
}

TEST_F(CMyFileTimeTest, FakeClock_CountsLeapDaysAndMidnight) {
  FakeClock& clock = UseFakeClock();
  clock.SetOffset(-3600);
  clock.SetLocalNow({2004, 2, 28, 23, 59, 59});
  EXPECT_EQ(clock.SecondsSinceMidnight(), 86399.0);
  clock.Advance(1);
  EXPECT_EQ(clock.LocalNow(), (DateTime{2004, 2, 29, 0, 0, 0}));
  EXPECT_EQ(clock.UtcTime(clock.Now()), (DateTime{2004, 2, 29, 1, 0, 0}));
}

}  // namespace
}  // namespace qb
