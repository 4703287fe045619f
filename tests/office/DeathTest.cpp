#include <signal.h>

#include <atomic>
#include <filesystem>
#include <fstream>

#include "apps/office/UnoStart.h"
#include "office/HelperProcess.h"
#include "office/OfficeUser.h"
#include "support/FolderTest.h"

namespace qb::office {
namespace {

using nlohmann::json;

/// Each test has a helper and an office of its own, which do not outlive it.
class DeathTest : public FolderTest {
 protected:
  std::string Path(const std::string& name) const { return Native(name).string(); }

  std::string Sample() const {
    const std::string copy = Path("wartung.doc");
    std::filesystem::copy_file(std::filesystem::path(QB_EXAMPLES) / "translation/dst/wartung/wartung.doc",
                               copy);
    return copy;
  }

  static int Open(HelperProcess& helper, const std::string& path) {
    return helper.Ask("open", {{"path", path}, {"readOnly", false}}).value("document", 0);
  }

  /// Whether a process has been told to take no notice of a signal.
  static bool Ignores(pid_t process, int signal) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with("SigIgn:")) return (std::stoull(line.substr(7), nullptr, 16) >> (signal - 1)) & 1U;
    }
    return true;
  }

  static void ExpectClosedAndEnded(HelperProcess& helper, int document) {
    EXPECT_EQ(helper.WaitForEvent("closed").value("document", 0), document);
    const std::vector<json> rest = helper.ReadToEnd();
    ASSERT_EQ(rest.size(), 1U);
    EXPECT_EQ(rest[0], json({{"event", "ended"}}));
    EXPECT_EQ(helper.WaitForEnd(), 0);
  }
};

TEST_F(DeathTest, anOfficeThatDiesAtItsStartIsTold) {
  // It listens elsewhere, so that its start is not over before it dies.
  const std::string launcher = Path("soffice");
  std::ofstream(launcher) << "#!/bin/bash\nexec " << QB_OFFICE_PROGRAM
                          << "/soffice \"${@/pipe,name=/pipe,name=not_}\"\n";
  std::filesystem::permissions(launcher, std::filesystem::perms::owner_all);
  HelperProcess helper(Path("profile"), {"--office", launcher});
  Signal(helper.OfficePid(), SIGKILL);
  const std::vector<json> lines = helper.ReadToEnd();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].value("event", ""), "failed");
  EXPECT_NE(helper.WaitForEnd(), 0);
}

TEST_F(DeathTest, anOfficeThatIsNotThereIsTold) {
  HelperProcess helper(Path("profile"), {"--office", Path("soffice")});
  const json failed = helper.WaitForEvent("failed");
  EXPECT_NE(failed.value("text", "").find(Path("soffice")), std::string::npos) << failed;
  EXPECT_EQ(helper.WaitForEnd(), 1);
}

TEST_F(DeathTest, aSecondHelperLeavesTheProfileAlone) {
  HelperProcess helper(Path("profile"));
  helper.WaitForEvent("ready");
  HelperProcess second(Path("profile"));
  EXPECT_EQ(second.WaitForEnd(), 3);
  helper.Send("quit");
  EXPECT_EQ(helper.WaitForEnd(), 0);
}

TEST_F(DeathTest, closesAllDocumentsOfADeadOffice) {
  const std::string path = Sample();
  {
    HelperProcess helper(Path("profile"));
    const int document = Open(helper, path);
    Signal(helper.OfficePid(), SIGKILL);
    ExpectClosedAndEnded(helper, document);
  }
  EXPECT_TRUE(Exists(".~lock.wartung.doc#"));
  // The lock that is left keeps nobody out, neither with that profile nor with another.
  std::filesystem::copy_file(Path(".~lock.wartung.doc#"), Path("lock"));
  for (const char* profile : {"profile", "other"}) {
    HelperProcess helper(Path(profile));
    EXPECT_GT(Open(helper, path), 0) << profile;
    helper.Ask("quit");
    helper.WaitForEnd();
    std::filesystem::copy_file(Path("lock"), Path(".~lock.wartung.doc#"));
  }
}

TEST_F(DeathTest, outlivesWhatEndsAProgramFromATerminalOrAtALogout) {
  HelperProcess helper(Path("profile"));
  const int document = Open(helper, Sample());
  for (const int end : {SIGINT, SIGHUP, SIGTERM}) {
    Signal(helper.Pid(), end);
    // To a lost terminal the office pays no attention by itself.
    EXPECT_EQ(Ignores(helper.OfficePid(), end), end == SIGHUP) << end;
  }
  EXPECT_TRUE(helper.Ask("title", {{"document", document}}).contains("title"));
  helper.Ask("quit");
  EXPECT_EQ(helper.WaitForEnd(), 0);
}

TEST_F(DeathTest, answersARequestWhoseOfficeDies) {
  PrepareUno();
  const std::string path = Sample();
  HelperProcess helper(Path("profile"));
  const int document = Open(helper, path);
  const pid_t office = helper.OfficePid();
  OfficeUser user(helper.Pipe());
  user.Write(path, "More");
  // It hangs in the middle of the first request, and the second one waits.
  std::atomic<bool> hangs = false;
  user.At("OnSave", [office, &hangs] {
    Signal(office, SIGSTOP);
    hangs = true;
  });
  const int request = helper.Send("close", {{"documents", {document}}});
  ASSERT_TRUE(WaitUntil([&hangs] { return hangs.load(); }));
  helper.Send("title", {{"document", document}});
  Signal(office, SIGKILL);
  EXPECT_EQ(helper.WaitForAnswer(request).value("code", ""), "office");
  ExpectClosedAndEnded(helper, document);
}

TEST_F(DeathTest, doesNotWaitForAnOfficeThatHangs) {
  // Long enough for a slow machine to open a document.
  HelperProcess helper(Path("profile"), {"--patience", "4"});
  helper.WaitForEvent("ready");
  const std::string path = Sample();
  const pid_t office = helper.OfficePid();
  Signal(office, SIGSTOP);
  EXPECT_EQ(helper.Ask("open", {{"path", path}, {"readOnly", false}}).value("code", ""), "office");
  EXPECT_EQ(helper.Ask("quit").value("code", ""), "office");
  Signal(office, SIGCONT);
  // What was asked for in vain is not done afterwards: the document can be opened.
  json answer = helper.Ask("open", {{"path", path}, {"readOnly", false}});
  while (answer.value("code", "") == "office")
    answer = helper.Ask("open", {{"path", path}, {"readOnly", false}});
  EXPECT_TRUE(answer.contains("document")) << answer;
}

TEST_F(DeathTest, leavesTheOfficeToItsUserWhenTheProgramDies) {
  PrepareUno();
  const std::string path = Sample();
  HelperProcess helper(Path("profile"));
  const int document = Open(helper, path);
  const pid_t office = helper.OfficePid();
  helper.CloseInput();
  {
    OfficeUser user(helper.Pipe());
    user.Write(path, "Still at work");
    user.Command(path, ".uno:Save");
    EXPECT_EQ(helper.WaitForEvent("saved").value("document", 0), document);
    user.Command(path, ".uno:CloseDoc");
  }
  ExpectClosedAndEnded(helper, document);
  EXPECT_TRUE(WaitUntilGone(office));
}

TEST_F(DeathTest, findsTheOfficeOfADeadHelperAgain) {
  const std::string path = Sample();
  auto helper = std::make_unique<HelperProcess>(Path("profile"));
  Open(*helper, path);
  const pid_t office = helper->OfficePid();
  Signal(helper->Pid(), SIGKILL);
  EXPECT_EQ(helper->WaitForEnd(), 128 + SIGKILL);
  helper = std::make_unique<HelperProcess>(Path("profile"));
  EXPECT_EQ(helper->Ask("isOpen", {{"path", path}}), json({{"open", true}}));
  EXPECT_EQ(helper->Ask("isOpen", {{"path", Path("other.doc")}}), json({{"open", false}}));
  EXPECT_EQ(helper->Ask("open", {{"path", path}, {"readOnly", false}}).value("code", ""), "already-open");
  helper->Ask("quit");
  EXPECT_EQ(helper->WaitForEnd(), 0);
  // Its user may be at work in it.
  EXPECT_EQ(kill(office, 0), 0);
  Signal(office, SIGKILL);
  EXPECT_TRUE(WaitUntilGone(office));
}

TEST_F(DeathTest, quitStoresWhatIsOpenAndEndsTheOffice) {
  PrepareUno();
  const std::string path = Sample();
  HelperProcess helper(Path("profile"));
  const int document = Open(helper, path);
  {
    OfficeUser user(helper.Pipe());
    user.Write(path, "Kept");
  }
  const pid_t office = helper.OfficePid();
  const int request = helper.Send("quit");
  const std::vector<json> lines = helper.ReadToEnd();
  std::vector<json> tail(lines.end() - 4, lines.end());
  EXPECT_TRUE(tail[1].contains("last"));
  tail[1].erase("last");
  EXPECT_EQ(tail, (std::vector<json>{{{"event", "saved"}, {"document", document}},
                                     {{"event", "closed"}, {"document", document}},
                                     {{"id", request}, {"result", json::object()}},
                                     {{"event", "ended"}}}));
  EXPECT_EQ(helper.WaitForEnd(), 0);
  EXPECT_TRUE(WaitUntilGone(office));
}

}  // namespace
}  // namespace qb::office
