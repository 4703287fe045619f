#include <cstdlib>
#include <filesystem>
#include <memory>
#include <tuple>
#include <vector>

#include "apps/office/Failure.h"
#include "apps/office/UnoStart.h"
#include "office/HelperProcess.h"
#include "office/OfficeUser.h"
#include "support/FolderTest.h"

namespace qb::office {
namespace {

using nlohmann::json;

/// The user ends the whole office, as Ctrl+Q does.
class EndTest : public FolderTest {
 protected:
  EndTest() : helper_(std::make_unique<HelperProcess>(Path("profile"))) {
    PrepareUno();
    helper_->WaitForEvent("ready");
    user_ = std::make_unique<OfficeUser>(helper_->Pipe());
  }

  std::string Path(const std::string& name) const { return Native(name).string(); }

  std::string Sample(const std::string& name) const {
    const std::string copy = Path(name + ".doc");
    std::filesystem::copy_file(
        std::filesystem::path(QB_EXAMPLES) / "translation/dst" / name / (name + ".doc"), copy);
    return copy;
  }
  int Open(const std::string& path) {
    return helper_->Ask("open", {{"path", path}, {"readOnly", false}}).value("document", 0);
  }
  void EndOffice(const std::string& path) {
    try {
      user_->Begin(path, ".uno:Quit");
    } catch (const Failure& failure) {
      // It is quicker gone than its answer.
      EXPECT_EQ(failure.Code(), "ended");
    }
  }
  HelperProcess& Helper() { return *helper_; }
  OfficeUser& User() { return *user_; }
  void StartAgain() {
    user_.reset();
    EXPECT_EQ(helper_->WaitForEnd(), 0);
    helper_ = std::make_unique<HelperProcess>(Path("profile"));
  }

 private:
  std::unique_ptr<HelperProcess> helper_;
  std::unique_ptr<OfficeUser> user_;
};

TEST_F(EndTest, isToldAndBeginsWithNoRequestThatComesMeanwhile) {
  const std::string path = Sample("wartung");
  const std::string next = Sample("sicherheit");
  const int document = Open(path);
  EndOffice(path);
  EXPECT_EQ(Helper().WaitForEvent("closed").value("document", 0), document);
  const int request = Helper().Send("open", {{"path", next}, {"readOnly", false}});
  std::vector<json> lines = Helper().ReadToEnd();
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.back(), json({{"event", "ended"}}));
  lines.pop_back();
  for (const json& line : lines) {
    EXPECT_EQ(line.value("id", 0), request) << line;
    EXPECT_EQ(line["error"].value("code", ""), "ended") << line;
  }
  StartAgain();
  EXPECT_GT(Open(next), 0);
}

TEST_F(EndTest, tellsWhatTheLastSaveLeft) {
  Put("page.html",
      "<html><head><title>x</title></head><body><p><a href=\"http://x/y\">z</a></p></body></html>");
  const std::string path = Path("page.html");
  const int document = Open(path);
  Helper().Ask("setTitle", {{"document", document}, {"title", "Title"}});
  User().Write(path, "More");
  User().Command(path, ".uno:Save");
  EndOffice(path);
  const json closed = Helper().WaitForEvent("closed");
  EXPECT_EQ(closed,
            json({{"event", "closed"},
                  {"document", document},
                  {"last", {{"title", {{"title", "Title"}}}, {"links", {{"links", {"http://x/y"}}}}}}}));
  EXPECT_EQ(Helper().ReadToEnd(), std::vector<json>{json({{"event", "ended"}})});
}

TEST_F(EndTest, isNoneIfTheUserTakesItBack) {
  const std::string path = Sample("wartung");
  Open(path);
  User().Write(path, "More");
  ASSERT_TRUE(WaitUntil([&] { return User().IsActive(path) && WindowsOnScreen() == 1; }));
  std::ignore = std::system("xdotool key --clearmodifiers ctrl+q");
  ASSERT_TRUE(WaitUntil([] { return WindowsOnScreen() == 2; }));
  ASSERT_TRUE(
      WaitUntil([] { return WindowsOnScreen() == 1 || std::system("sleep 0.5; xdotool key Escape") != 0; }));
  EXPECT_TRUE(Helper().Waiting().empty());
  const std::string next = Sample("sicherheit");
  EXPECT_GT(Open(next), 0);
}

}  // namespace
}  // namespace qb::office
