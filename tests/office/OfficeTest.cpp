#include "office/OfficeTest.h"

#include <cstdlib>
#include <filesystem>

#include "apps/office/UnoStart.h"
#include "support/FreshFolder.h"

namespace qb::office {

using nlohmann::json;

namespace {

std::string profile;

}  // namespace

std::unique_ptr<HelperProcess> OfficeTest::helper_;
std::unique_ptr<OfficeUser> OfficeTest::user_;

void OfficeTest::SetUpTestSuite() {
  StartHelper({});
}

void OfficeTest::StartHelper(const std::vector<std::string>& more) {
  PrepareUno();
  profile = MakeFreshFolder();
  helper_ = std::make_unique<HelperProcess>(profile, more);
  helper_->WaitForEvent("ready");
  user_ = std::make_unique<OfficeUser>(helper_->Pipe());
}

void OfficeTest::TearDownTestSuite() {
  user_.reset();
  helper_->Send("quit");
  helper_->ReadToEnd();
  EXPECT_EQ(helper_->WaitForEnd(), 0);
  helper_.reset();
  std::filesystem::remove_all(profile);
}

void OfficeTest::TearDown() {
  Helper().Ask("close", {{"documents", opened_}});
  Helper().Forget();
}

std::string OfficeTest::Sample(const std::string& name, const std::string& as) {
  const std::filesystem::path sample = std::filesystem::path(QB_EXAMPLES) / "translation/dst" / name;
  const std::filesystem::path copy = Path(as.empty() ? sample.filename().string() : as);
  std::filesystem::create_directories(copy.parent_path());
  std::filesystem::copy_file(sample, copy);
  return copy;
}

int OfficeTest::Open(const std::string& path, bool readOnly) {
  const json answer = Helper().Ask("open", {{"path", path}, {"readOnly", readOnly}});
  if (!answer.contains("document")) {
    ADD_FAILURE() << answer;
    return 0;
  }
  opened_.push_back(answer["document"]);
  return opened_.back();
}

std::string OfficeTest::OpenError(const std::string& path, bool readOnly) {
  const json answer = Helper().Ask("open", {{"path", path}, {"readOnly", readOnly}});
  if (answer.contains("document")) opened_.push_back(answer["document"]);
  return answer.value("code", "");
}

void OfficeTest::Close(int document) {
  Helper().Ask("close", {{"documents", {document}}});
}

void OfficeTest::Press(const std::string& path, const std::string& keys) {
  ASSERT_TRUE(PressIn(std::filesystem::path(path).filename(), "Shift_L"));
  EXPECT_TRUE(WaitUntil([&path] { return User().IsActive(path); }));
  ASSERT_TRUE(PressIn(std::filesystem::path(path).filename(), keys));
}

bool OfficeTest::PressIn(const std::string& window, const std::string& keys) {
  // Keys that are sent in one go with a window's name are marked as sent, and ignored.
  const std::string command = "timeout 60 xdotool search --sync --onlyvisible --name '^" + window +
                              "' windowactivate --sync && xdotool key --clearmodifiers " + keys;
  return std::system(command.c_str()) == 0;
}

}  // namespace qb::office
