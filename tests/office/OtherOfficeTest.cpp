#include <filesystem>
#include <memory>

#include "apps/office/OfficeProcess.h"
#include "apps/office/ProfileSettings.h"
#include "office/OfficeTest.h"
#include "support/FreshFolder.h"

namespace qb::office {
namespace {

using nlohmann::json;

/// The user has an office of his own beside ours.
class OtherOfficeTest : public OfficeTest {
 protected:
  static void SetUpTestSuite() {
    OfficeTest::SetUpTestSuite();
    place_ = MakeFreshFolder();
    WriteProfileSettings(place_);
    const std::string pipe = NewPipeName();
    process_ = std::make_unique<OfficeProcess>(QB_OFFICE_PROGRAM "/soffice", place_, pipe);
    owner_ = std::make_unique<OfficeUser>(pipe);
  }
  static void TearDownTestSuite() {
    OfficeTest::TearDownTestSuite();
    // Ours is no more; his works on.
    EXPECT_FALSE(process_->HasEnded());
    EXPECT_TRUE(owner_->IsOpen(last_));
    Owner().Unload(last_);
    owner_->EndOffice();
    EXPECT_TRUE(WaitUntil([] { return process_->HasEnded(); }));
    process_->Kill();
    owner_.reset();
    process_.reset();
    std::filesystem::remove_all(place_);
  }

  static OfficeUser& Owner() { return *owner_; }
  /// What is still open there when our office ends.
  static std::string last_;

 private:
  static std::filesystem::path place_;
  static std::unique_ptr<OfficeProcess> process_;
  static std::unique_ptr<OfficeUser> owner_;
};

std::string OtherOfficeTest::last_;
std::filesystem::path OtherOfficeTest::place_;
std::unique_ptr<OfficeProcess> OtherOfficeTest::process_;
std::unique_ptr<OfficeUser> OtherOfficeTest::owner_;

TEST_F(OtherOfficeTest, keepsTheDocumentThatItHasOpen) {
  const std::string path = Sample("wartung/wartung.doc");
  Owner().Load(path);
  Owner().Write(path, "Theirs");
  const std::string before = Content("wartung.doc");
  const std::string lock = Content(".~lock.wartung.doc#");
  EXPECT_EQ(OpenError(path), "locked");
  EXPECT_EQ(Content("wartung.doc"), before);
  EXPECT_EQ(Content(".~lock.wartung.doc#"), lock);
  EXPECT_TRUE(Owner().IsModified(path));
  // A source is only read.
  const int source = Open(path, true);
  Owner().Command(path, ".uno:Save");
  EXPECT_NE(Content("wartung.doc"), before);
  Close(source);
  for (const json& line : Helper().Waiting()) EXPECT_NE(line.value("event", ""), "saved") << line;
  EXPECT_EQ(Content(".~lock.wartung.doc#"), lock);
  Owner().Unload(path);
  EXPECT_EQ(OpenError(path), "");
}

TEST_F(OtherOfficeTest, livesOnWhenOursEnds) {
  last_ = Sample("sicherheit/sicherheit.doc");
  Owner().Load(last_);
  Open(Sample("wartung/wartung.doc"));
}

}  // namespace
}  // namespace qb::office
