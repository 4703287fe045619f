#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/CachedProfileFilesFixture.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

using ::testing::HasSubstr;
using std::operator""sv;

class ProfileBatchTest : public CachedProfileFilesTest {};

TEST_F(ProfileBatchTest, Batch_FlushesOnceAtTheEnd) {
  Put(kFile, "[A]\r\nK=1\r\n");
  LetFilesSettle();
  ProfileBatch batch(profiles_, kFile);
  files_.ForgetCounts();
  for (int i = 0; i < 100; ++i) EXPECT_TRUE(Set("A", "K" + std::to_string(i), "v"));
  EXPECT_EQ(Get("A", "K99"), "v");
  EXPECT_EQ(Count(FileOperation::kStamp), 0);
  EXPECT_EQ(Content(kFile), "[A]\r\nK=1\r\n");
  EXPECT_TRUE(batch.End());
  EXPECT_EQ(Count(FileOperation::kReplaceContent), 1);
  EXPECT_EQ(Get("A", "K99"), "v");
  EXPECT_THAT(Content(kFile), HasSubstr("\r\nK99=v\r\n"));
}

TEST_F(ProfileBatchTest, Batch_LengthIsThatOfTheFileToBe) {
  Put(kFile, "[A]\r\nK=1\r\n");
  ProfileBatch batch(profiles_, kFile);
  EXPECT_TRUE(Set("A", "K", "12345"));
  EXPECT_EQ(profiles_.Length(kFile), 14U);
  EXPECT_TRUE(batch.End());
  EXPECT_EQ(Content(kFile).size(), 14U);
}

TEST_F(ProfileBatchTest, Batch_MissingFile_RaisesForItsLengthUntilSomethingIsWritten) {
  ProfileBatch batch(profiles_, kFile);
  EXPECT_THROW(profiles_.Length(kFile), RuntimeError);
  EXPECT_TRUE(Set("A", "K", "1"));
  EXPECT_EQ(profiles_.Length(kFile), 10U);
}

TEST_F(ProfileBatchTest, Batch_WithoutChange_WritesNothing) {
  Put(kFile, "[A]\r\nK=1\r\n");
  {
    const ProfileBatch batch(profiles_, kFile);
    EXPECT_TRUE(Set("A", "K", "1"));
  }
  EXPECT_EQ(Count(FileOperation::kReplaceContent), 0);
}

TEST_F(ProfileBatchTest, Batches_Nest) {
  ProfileBatch outer(profiles_, kFile);
  {
    ProfileBatch inner(profiles_, kFile);
    EXPECT_TRUE(Set("A", "K", "1"));
    EXPECT_TRUE(inner.End());
  }
  EXPECT_FALSE(Exists(kFile));
  EXPECT_TRUE(outer.End());
  EXPECT_EQ(Content(kFile), "[A]\r\nK=1\r\n");
}

TEST_F(ProfileBatchTest, Batch_OtherFilesInBetween_AreReadAndWrittenAtOnce) {
  Put(kOther, "[A]\r\nK=o\r\n");
  Put(R"(\pkg\Third.pxf)", "[A]\r\nK=t\r\n");
  ProfileBatch batch(profiles_, kFile);
  EXPECT_TRUE(Set("A", "K", "1"));
  EXPECT_EQ(Get("A", "K", kOther), "o");
  EXPECT_EQ(Get("A", "K", R"(\pkg\Third.pxf)"), "t");
  EXPECT_TRUE(Set("A", "K", "2", kOther));
  EXPECT_EQ(Content(kOther), "[A]\r\nK=2\r\n");
  EXPECT_EQ(Get("A", "K"), "1");
  EXPECT_TRUE(batch.End());
  EXPECT_EQ(Content(kFile), "[A]\r\nK=1\r\n");
}

TEST_F(ProfileBatchTest, Batch_FileChangedByAnotherProgram_KeepsHisKeys) {
  Put(kFile, "[A]\r\nK=1\r\nL=1\r\n[B]\r\nM=1\r\n");
  ProfileBatch batch(profiles_, kFile);
  EXPECT_TRUE(Set("A", "K", "2"));
  EXPECT_TRUE(Remove("A", "L"));
  EXPECT_TRUE(profiles_.WritePrivateProfileString("B", std::nullopt, std::nullopt, kFile));
  EXPECT_TRUE(Set("C", "N", "3"));
  Put(kFile, "[A]\r\nK=1\r\nL=1\r\nHIS=1\r\n[B]\r\nM=1\r\n");
  EXPECT_TRUE(batch.End());
  EXPECT_EQ(Content(kFile), "[A]\r\nK=2\r\nHIS=1\r\n[C]\r\nN=3\r\n");
}

TEST_F(ProfileBatchTest, Batch_RefusedAtItsEnd_IsWrittenWithTheNextWrite) {
  Put(kFile, "[A]\r\nK=1\r\n");
  ProfileBatch batch(profiles_, kFile);
  EXPECT_TRUE(Set("A", "K", "2"));
  files_.Fail(FileOperation::kReplaceContent, failure::kDiskFull);
  EXPECT_FALSE(batch.End());
  EXPECT_THAT(profiles_.LastRefusal(), AllOf(HasSubstr(kFile), HasSubstr("Disk full")));
  EXPECT_EQ(Content(kFile), "[A]\r\nK=1\r\n");
  EXPECT_FALSE(Set("A", "L", "3"));
  files_.Heal();
  EXPECT_EQ(Get("A", "K"), "2");
  EXPECT_EQ(Get("A", "L"), "-");
  EXPECT_TRUE(Set("A", "M", "4"));
  EXPECT_EQ(Content(kFile), "[A]\r\nK=2\r\nM=4\r\n");
}

TEST_F(ProfileBatchTest, Batch_RefusedAtItsEnd_SurvivesOtherFiles) {
  ProfileBatch batch(profiles_, kFile);
  EXPECT_TRUE(Set("A", "K", "2"));
  files_.Fail(FileOperation::kReplaceContent, failure::kDiskFull, "Trans");
  EXPECT_FALSE(batch.End());
  files_.Heal();
  for (const std::string_view path : {kOther, R"(\pkg\3.pxf)"sv, R"(\pkg\4.pxf)"sv})
    EXPECT_TRUE(Set("A", "K", "x", path));
  EXPECT_TRUE(Set("A", "L", "3"));
  EXPECT_EQ(Content(kFile), "[A]\r\nK=2\r\nL=3\r\n");
}

TEST_F(ProfileBatchTest, Batch_FileThatCannotBeLocked_IsReadAndRefusedAtItsEnd) {
  Put(kFile, "[A]\r\nK=1\r\n");
  files_.Fail(FileOperation::kLock, failure::kPermissionDenied);
  ProfileBatch batch(profiles_, kFile);
  EXPECT_EQ(Get("A", "K"), "1");
  EXPECT_TRUE(Set("A", "K", "2"));
  EXPECT_FALSE(batch.End());
  EXPECT_THAT(profiles_.LastRefusal(), HasSubstr("Permission denied"));
  EXPECT_EQ(Content(kFile), "[A]\r\nK=1\r\n");
}

TEST_F(ProfileBatchTest, Batch_Unchanged_OfAFileThatCannotBeLocked_Succeeds) {
  Put(kFile, "[A]\r\nK=1\r\n");
  files_.Fail(FileOperation::kLock, failure::kPermissionDenied);
  ProfileBatch batch(profiles_, kFile);
  EXPECT_EQ(Get("A", "K"), "1");
  EXPECT_TRUE(batch.End());
}

TEST_F(ProfileBatchTest, EndBatch_WithoutOne_IsNoFailure) {
  EXPECT_TRUE(profiles_.EndBatch());
}

}  // namespace
}  // namespace qb
