#include <signal.h>

#include <algorithm>
#include <com/sun/star/util/XCloseListener.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <cppuhelper/implbase1.hxx>
#include <filesystem>
#include <memory>
#include <vector>

#include "apps/office/Failure.h"
#include "apps/office/UnoStart.h"
#include "office/HelperProcess.h"
#include "office/OfficeUser.h"
#include "support/FolderTest.h"
#include "support/FreshFolder.h"

namespace qb::office {
namespace {

using nlohmann::json;

/// Kills the office in the middle of an attempt to close a document.
class KillAtClose : public cppu::WeakImplHelper1<com::sun::star::util::XCloseListener> {
 public:
  explicit KillAtClose(pid_t office) : office_(office) {}
  void SAL_CALL queryClosing(const com::sun::star::lang::EventObject& /*source*/,
                             sal_Bool /*owns*/) override {
    Signal(office_, SIGKILL);
  }
  void SAL_CALL notifyClosing(const com::sun::star::lang::EventObject& /*source*/) override {}
  void SAL_CALL disposing(const com::sun::star::lang::EventObject& /*source*/) override {}

 private:
  const pid_t office_;
};

/// The office is killed in the middle of something, while another document is open that has no part in it.
/// Each test hands on the office that it needed after the kill.
class KillTest : public FolderTest {
 protected:
  static void SetUpTestSuite() {
    PrepareUno();
    profile_ = MakeFreshFolder();
    helper_ = std::make_unique<HelperProcess>(profile_);
  }
  static void TearDownTestSuite() {
    helper_->Ask("quit");
    EXPECT_EQ(helper_->WaitForEnd(), 0);
    helper_.reset();
    std::filesystem::remove_all(profile_);
  }
  void SetUp() override {
    bystander_ = Open("sicherheit/sicherheit.doc");
    office_ = helper_->OfficePid();
    user_ = std::make_unique<OfficeUser>(helper_->Pipe());
    helper_->Forget();
  }

  std::string Path(const std::string& name) const { return Native(name).string(); }

  /// Has the office killed in the middle of what it tells by this event.
  void KillAt(const std::string& event) {
    user_->At(event, [office = office_] { Signal(office, SIGKILL); });
  }

  json Ask(const std::string& name) {
    const std::filesystem::path sample = std::filesystem::path(QB_EXAMPLES) / "translation/dst" / name;
    const std::filesystem::path copy = Path(sample.filename());
    std::filesystem::copy_file(sample, copy, std::filesystem::copy_options::overwrite_existing);
    return helper_->Ask("open", {{"path", copy.string()}, {"readOnly", false}});
  }
  int Open(const std::string& name) {
    const json answer = Ask(name);
    EXPECT_TRUE(answer.contains("document")) << answer;
    return answer.value("document", 0);
  }

  /// What the helper still says: that each of these documents is closed, in any order and once, and last that
  /// the office has ended. A new helper then opens them all.
  void ExpectClosedOnce(std::vector<int> documents) {
    std::vector<json> lines = helper_->ReadToEnd();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back(), json({{"event", "ended"}}));
    lines.pop_back();
    std::vector<int> closed;
    for (const json& line : lines) {
      EXPECT_EQ(line.value("event", ""), "closed") << line;
      closed.push_back(line.value("document", 0));
    }
    std::sort(closed.begin(), closed.end());
    std::sort(documents.begin(), documents.end());
    EXPECT_EQ(closed, documents);
    EXPECT_EQ(helper_->WaitForEnd(), 0);
    user_.reset();
    helper_ = std::make_unique<HelperProcess>(profile_);
    const int again = Open("wartung/wartung.doc");
    helper_->Ask("close", {{"documents", {again, Open("sicherheit/sicherheit.doc")}}});
  }

  int Bystander() const { return bystander_; }
  static HelperProcess& Helper() { return *helper_; }
  OfficeUser& User() { return *user_; }
  pid_t Office() const { return office_; }

 private:
  static std::filesystem::path profile_;
  static std::unique_ptr<HelperProcess> helper_;
  std::unique_ptr<OfficeUser> user_;
  int bystander_ = 0;
  pid_t office_ = -1;
};

std::filesystem::path KillTest::profile_;
std::unique_ptr<HelperProcess> KillTest::helper_;

TEST_F(KillTest, whileADocumentIsOpened) {
  KillAt("OnLoadFinished");
  EXPECT_EQ(Ask("wartung/wartung.doc").value("code", ""), "office");
  ExpectClosedOnce({Bystander()});
}

TEST_F(KillTest, whileALongDocumentIsRead) {
  std::string text = "<html><body>";
  for (int line = 0; line < 500000; ++line) text += "<p>Line <b>" + std::to_string(line) + "</b></p>\n";
  Put("long.html", text + "</body></html>");
  const int request = Helper().Send("open", {{"path", Path("long.html")}, {"readOnly", false}});
  ASSERT_TRUE(WaitUntil([this] { return Exists(".~lock.long.html#"); }));
  Signal(Office(), SIGKILL);
  EXPECT_EQ(Helper().WaitForAnswer(request).value("code", ""), "office");
  ExpectClosedOnce({Bystander()});
}

TEST_F(KillTest, whileItsUserSaves) {
  const int document = Open("wartung/wartung.doc");
  const std::string before = Content("wartung.doc");
  User().Write(Path("wartung.doc"), "More");
  KillAt("OnSave");
  EXPECT_THROW(User().Command(Path("wartung.doc"), ".uno:Save"), Failure);
  EXPECT_EQ(Content("wartung.doc"), before);
  ExpectClosedOnce({document, Bystander()});
}

TEST_F(KillTest, whileADocumentIsStoredAtItsClose) {
  const int document = Open("wartung/wartung.doc");
  User().Write(Path("wartung.doc"), "More");
  KillAt("OnSave");
  EXPECT_EQ(Helper().Ask("close", {{"documents", {document}}}).value("code", ""), "office");
  ExpectClosedOnce({document, Bystander()});
}

TEST_F(KillTest, whileADocumentIsClosed) {
  const int document = Open("wartung/wartung.doc");
  KillAt("OnUnload");
  // Whether the document or the office was the first to go makes no difference to who asked.
  const json answer = Helper().Ask("close", {{"documents", {document}}});
  EXPECT_TRUE(answer.empty() || answer.value("code", "") == "office") << answer;
  ExpectClosedOnce({document, Bystander()});
}

TEST_F(KillTest, whileADialogIsOpen) {
  const int document = Open("wartung/wartung.doc");
  ASSERT_TRUE(WaitUntil([] { return WindowsOnScreen() == 2; }));
  User().Begin(Path("wartung.doc"), ".uno:FontDialog");
  ASSERT_TRUE(WaitUntil([] { return WindowsOnScreen() == 3; }));
  User().Do([this] {
    Reference<com::sun::star::util::XCloseable>(User().Model(Path("wartung.doc")), UNO_QUERY_THROW)
        ->addCloseListener(new KillAtClose(Office()));
  });
  EXPECT_EQ(Helper().Ask("close", {{"documents", {document}}}).value("code", ""), "office");
  ExpectClosedOnce({document, Bystander()});
}

}  // namespace
}  // namespace qb::office
