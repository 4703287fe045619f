#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/linux/LinuxShell.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "support/FolderTest.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

void WriteFile(const std::filesystem::path& path, std::string_view bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

void WriteProgram(const std::filesystem::path& path, const std::string& script) {
  WriteFile(path, "#!/bin/sh\n" + script);
  std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

/// A desktop with applications and associations of its own. The desktop's library looks only once where these
/// stand, so it is there before the first test. Applications write down the folder that they start in and
/// their arguments, one in a line.
class TestDesktop : public ::testing::Environment {
 public:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "quillbank-desktop-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    Folder() = name;
    setenv("XDG_DATA_HOME", (Folder() / "data").c_str(), 1);
    // Of the machine's own data only the document types are wanted, not its applications.
    std::filesystem::create_directory(Folder() / "system");
    std::filesystem::create_directory_symlink("/usr/share/mime", Folder() / "system/mime");
    setenv("XDG_DATA_DIRS", (Folder() / "system").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (Folder() / "config").c_str(), 1);
    setenv("PATH", (Folder() / "bin:").string().append(std::getenv("PATH")).c_str(), 1);
    unsetenv("XDG_CURRENT_DESKTOP");
    const std::string record =
        "{ pwd; for a in \"$@\"; do echo \"$a\"; done; } > " + Record().string() + "\n";
    WriteProgram(Folder() / "bin/quillbank-recorder", record);
    WriteProgram(Folder() / "bin/x-terminal-emulator", "set -- terminal \"$@\"\n" + record);
    Application(
        "recorder",
        "DBusActivatable=true\nIcon=pen\nActions=Edit;Translate;\nExec=quillbank-recorder open %i %u\n"
        "[Desktop Action Edit]\nName=Edit\nExec=quillbank-recorder edit --wait %f\n"
        "[Desktop Action Translate]\nName=Translate\nExec=quillbank-recorder translate %F\n");
    Application("terminal", "Terminal=true\nExec=quillbank-recorder inside %f\n");
    WriteFile(
        Folder() / "config/mimeapps.list",
        "[Default Applications]\ntext/css=recorder.desktop\napplication/x-desktop=recorder.desktop\n"
        "application/rtf=terminal.desktop\ntext/rtf=terminal.desktop\n"
        "x-scheme-handler/http=recorder.desktop\n"
        "application/x-pie-executable=recorder.desktop\napplication/x-executable=recorder.desktop\n"
        "application/x-sharedlib=recorder.desktop\napplication/x-java-archive=recorder.desktop\n"
        "application/x-ms-dos-executable=recorder.desktop\napplication/vnd.appimage=recorder.desktop\n");
  }

  void TearDown() override { std::filesystem::remove_all(Folder()); }

  static std::filesystem::path& Folder() {
    static std::filesystem::path folder;
    return folder;
  }
  static std::filesystem::path Record() { return Folder() / "record.txt"; }

 private:
  static void Application(const std::string& name, const std::string& lines) {
    WriteFile(Folder() / "data/applications" / (name + ".desktop"),
              "[Desktop Entry]\nType=Application\nName=" + name + "\n" + lines);
  }
};

[[maybe_unused]] const ::testing::Environment* const desktop =
    ::testing::AddGlobalTestEnvironment(new TestDesktop);

class LinuxShellTest : public FolderTest {
 protected:
  LinuxShellTest() {
    std::filesystem::remove(TestDesktop::Record());
    Put(R"(\pkg\dst\Styles.css)", "p {}");
    Put(R"(\pkg\src\Styles.css)", "p {}");
  }

  bool Execute(const std::string& verb, const std::string& file, const std::string& parameters = {}) {
    return shell_.Execute({verb, file, parameters, R"(\pkg\dst)"}, process_);
  }

  /// Waits until the process has ended and returns its exit code.
  std::uint32_t ExitCode(ProcessHandle process) {
    std::uint32_t code = 0;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (shell_.GetExitCode(process, code) && code == Shell::kStillActive &&
           std::chrono::steady_clock::now() < end) {
      std::this_thread::yield();
    }
    return code;
  }

  /// What the started application has written down, the native root of the drive left out.
  std::vector<std::string> Recorded(ProcessHandle process) {
    EXPECT_EQ(ExitCode(process), 0U);
    std::vector<std::string> lines;
    std::ifstream record(TestDesktop::Record());
    for (std::string line; std::getline(record, line);) lines.push_back(ReplaceFirst(line, Root(), ""));
    return lines;
  }

  void SetVerb(const std::string& type, const std::string& verb, std::string_view command) {
    hive_.SetText(Hive::kClassesRoot, type + R"(\shell\)" + verb + R"(\command)", "", command);
  }

  HiveRegistry hive_{Native(R"(\hive)").string()};
  LinuxShell shell_{Root(), Native(R"(\hive)").string()};
  ProcessHandle process_ = -1;
};

TEST_F(LinuxShellTest, Open_StartsTheDefaultApplicationInTheFolderWithTheAbsolutePath) {
  ASSERT_TRUE(Execute("Open", "Styles.css"));
  EXPECT_THAT(Recorded(process_), ElementsAre("/pkg/dst", "open", "--icon", "pen", "/pkg/dst/Styles.css"));
}

TEST_F(LinuxShellTest, Open_NamesInAnyCase_AreFound) {
  ASSERT_TRUE(shell_.Execute({"OPEN", "STYLES.CSS", "", R"(\PKG\DST)"}, process_));
  EXPECT_THAT(Recorded(process_), ElementsAre("/pkg/dst", "open", "--icon", "pen", "/pkg/dst/Styles.css"));
}

TEST_F(LinuxShellTest, Open_FileAsAPath_NeedsNoFolder) {
  ASSERT_TRUE(shell_.Execute({"Open", R"(\pkg\src\Styles.css)", "", ""}, process_));
  EXPECT_THAT(Recorded(process_).back(), "/pkg/src/Styles.css");
}

TEST_F(LinuxShellTest, OtherVerb_IsTheDesktopActionOfThatNameInAnyCase) {
  ASSERT_TRUE(Execute("EDIT", "Styles.css"));
  EXPECT_THAT(Recorded(process_), ElementsAre("/pkg/dst", "edit", "--wait", "/pkg/dst/Styles.css"));
}

TEST_F(LinuxShellTest, Parameters_PathsInQuotesFollowTheFileAsNativePaths) {
  ASSERT_TRUE(Execute("Translate", "Styles.css", R"("\PKG\src\styles.css")"));
  EXPECT_THAT(Recorded(process_),
              ElementsAre("/pkg/dst", "translate", "/pkg/dst/Styles.css", "/pkg/src/Styles.css"));
}

TEST_F(LinuxShellTest, UnknownVerb_IsRefused) {
  EXPECT_FALSE(Execute("Print", "Styles.css"));
  EXPECT_FALSE(Execute("", "Styles.css"));
  EXPECT_EQ(process_, 0);
}

TEST_F(LinuxShellTest, FileWithoutAnApplication_IsRefused) {
  Put(R"(\pkg\dst\empty)", "");
  EXPECT_FALSE(Execute("Open", "empty"));
  EXPECT_EQ(process_, 0);
}

TEST_F(LinuxShellTest, MissingFileOrFolder_IsRefused) {
  SetVerb(".css", "Open", "quillbank-recorder %1");
  EXPECT_FALSE(Execute("Open", "missing.css"));
  EXPECT_FALSE(Execute("Open", ""));
  EXPECT_FALSE(shell_.Execute({"Open", R"(\pkg)", "", ""}, process_));
}

TEST_F(LinuxShellTest, TerminalApplication_RunsInATerminal) {
  Put(R"(\pkg\dst\a.rtf)", "{\\rtf1 }");
  ASSERT_TRUE(Execute("Open", "a.rtf"));
  EXPECT_THAT(Recorded(process_),
              ElementsAre("/pkg/dst", "terminal", "-e", "quillbank-recorder", "inside", "/pkg/dst/a.rtf"));
}

TEST_F(LinuxShellTest, HiveVerb_ComesBeforeTheDesktop) {
  SetVerb(".css", "open", "quillbank-recorder hive \"%1\" 100%% x%1");
  ASSERT_TRUE(Execute("Open", "Styles.css"));
  EXPECT_THAT(Recorded(process_),
              ElementsAre("/pkg/dst", "hive", "/pkg/dst/Styles.css", "100%", "x/pkg/dst/Styles.css"));
}

TEST_F(LinuxShellTest, HiveVerb_OfTheTypeThatTheExtensionNames) {
  hive_.SetText(Hive::kClassesRoot, ".css", "", "Style.Sheet");
  SetVerb("style.sheet", "Translate", "quillbank-recorder %1 %* \"all: %*\"");
  ASSERT_TRUE(Execute("Translate", "Styles.css", R"("\pkg\src\Styles.css" -x "a b")"));
  EXPECT_THAT(Recorded(process_), ElementsAre("/pkg/dst", "/pkg/dst/Styles.css", "/pkg/src/Styles.css", "-x",
                                              "a b", "all: /pkg/src/Styles.css -x a b"));
}

TEST_F(LinuxShellTest, HiveVerb_ProgramThatIsMissing_IsRefused) {
  SetVerb(".css", "Open", "quillbank-no-such-program %1");
  EXPECT_FALSE(Execute("Open", "Styles.css"));
  EXPECT_EQ(process_, 0);
}

TEST_F(LinuxShellTest, StrangeFileNames_ArriveUnchanged) {
  for (const std::string name :
       {"a b.css", "-rf.css", "$(touch x).css", "`x`;&|.css", "'\".css", "%f%1.css", "ü 表.css"}) {
    Put(R"(\pkg\dst\)" + name, "p {}");
    ASSERT_TRUE(Execute("Edit", name)) << name;
    EXPECT_THAT(Recorded(process_), ElementsAre("/pkg/dst", "edit", "--wait", "/pkg/dst/" + name));
    SetVerb(".css", "Open", "quillbank-recorder %1");
    ASSERT_TRUE(Execute("Open", name)) << name;
    EXPECT_THAT(Recorded(process_), ElementsAre("/pkg/dst", "/pkg/dst/" + name));
  }
}

TEST_F(LinuxShellTest, FilesThatArePrograms_AreRefusedForEveryVerb) {
  std::filesystem::copy_file("/bin/true", Native(R"(\pkg\dst\program)"));
  std::filesystem::copy_file("/bin/true", Native(R"(\pkg\dst\library.so)"));
  Put(R"(\pkg\dst\entry.desktop)", "[Desktop Entry]\nType=Application\nName=x\nExec=quillbank-recorder\n");
  Put(R"(\pkg\dst\setup.exe)", "MZ\x90");
  Put(R"(\pkg\dst\tool.jar)", "PK\x03\x04");
  Put(R"(\pkg\dst\tool.AppImage)", "AI");
  for (const std::string name :
       {"program", "library.so", "entry.desktop", "setup.exe", "tool.jar", "tool.AppImage"}) {
    const std::string extension = std::filesystem::path(name).extension().string();
    if (!extension.empty()) SetVerb(extension, "Edit", "quillbank-recorder %1");
    for (const std::string verb : {"Open", "Edit", "Translate"})
      EXPECT_FALSE(Execute(verb, name)) << verb << name;
  }
  EXPECT_FALSE(std::filesystem::exists(TestDesktop::Record()));
}

TEST_F(LinuxShellTest, Process_IsActiveUntilItEnds_AndThenHasItsExitCode) {
  const std::string pipe = Native(R"(\pipe)").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  WriteProgram(TestDesktop::Folder() / "bin/quillbank-waiter", "read line < \"" + pipe + "\"\nexit 3\n");
  SetVerb(".css", "Open", "quillbank-waiter");
  ASSERT_TRUE(Execute("Open", "Styles.css"));
  std::uint32_t code = 0;
  EXPECT_TRUE(shell_.GetExitCode(process_, code));
  EXPECT_EQ(code, Shell::kStillActive);
  EXPECT_TRUE(shell_.GetExitCode(process_, code));
  EXPECT_EQ(code, 259U);
  std::ofstream(pipe) << "end\n";
  EXPECT_EQ(ExitCode(process_), 3U);
  EXPECT_TRUE(shell_.GetExitCode(process_, code));
  EXPECT_EQ(code, 3U) << "it is told as often as it is asked for";
}

TEST_F(LinuxShellTest, Process_ThatIsKilled_HasEnded) {
  WriteProgram(TestDesktop::Folder() / "bin/quillbank-sleeper", "exec sleep 600\n");
  SetVerb(".css", "Open", "quillbank-sleeper");
  ASSERT_TRUE(Execute("Open", "Styles.css"));
  ASSERT_EQ(kill(process_, SIGKILL), 0);
  EXPECT_EQ(ExitCode(process_), 128U + SIGKILL);
}

TEST_F(LinuxShellTest, GetExitCode_UnknownProcess_Fails) {
  std::uint32_t code = 0;
  EXPECT_FALSE(shell_.GetExitCode(0, code));
  EXPECT_FALSE(shell_.GetExitCode(1, code)) << "a process that was not started here";
}

TEST_F(LinuxShellTest, Start_SplitsTheLineAsAShellQuotesButRunsNone) {
  const ProcessHandle process = shell_.Start("quillbank-recorder 'a b' \"c d\" $HOME; *");
  EXPECT_NE(process, 0);
  std::vector<std::string> lines = Recorded(process);
  lines.erase(lines.begin());
  EXPECT_THAT(lines, ElementsAre("a b", "c d", "$HOME;", "*"));
}

TEST_F(LinuxShellTest, Start_PathOfAProgram_IsFoundOnTheDrive) {
  WriteProgram(Native(R"(\opt\My Tools\info)"), "exec quillbank-recorder info \"$@\"\n");
  for (const auto& [line, arguments] : {std::pair{R"(\opt\my tools\INFO)", std::vector<std::string>{"info"}},
                                        std::pair{R"("\opt\My Tools\info" -a "b c" \d)",
                                                  std::vector<std::string>{"info", "-a", "b c", R"(\d)"}}}) {
    std::vector<std::string> lines = Recorded(shell_.Start(line));
    lines.erase(lines.begin());
    EXPECT_EQ(lines, arguments) << line;
  }
}

TEST_F(LinuxShellTest, Start_HelpViewer_IsTheDesktopsProgramForTheHelpFile) {
  Put(R"(\help me\en\00005554.chm)", "ITSF");
  SetVerb(".chm", "open", "quillbank-recorder viewer %1");
  std::vector<std::string> lines = Recorded(shell_.Start(R"(hh.exe \Help me\EN\00005554.chm)"));
  EXPECT_THAT(lines, ElementsAre(::testing::_, "viewer", "/help me/en/00005554.chm"));
}

TEST_F(LinuxShellTest, Start_HelpViewer_OnADesktopWithoutOne_NamesTheFile) {
  Put(R"(\en\00005554.chm)", "ITSF");
  try {
    shell_.Start(R"(HH.EXE \en\00005554.chm)");
    ADD_FAILURE() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), failure::kFileNotFound);
    EXPECT_THAT(error.Description(), ::testing::HasSubstr(R"(\en\00005554.chm)"));
  }
}

TEST_F(LinuxShellTest, Start_HelpViewer_OnAProgramFile_StartsNothing) {
  WriteProgram(Native(R"(\en\help.AppImage)"), "exec quillbank-recorder\n");
  EXPECT_THROW(shell_.Start(R"(hh.exe \en\help.AppImage)"), RuntimeError);
  EXPECT_FALSE(std::filesystem::exists(TestDesktop::Record()));
}

TEST_F(LinuxShellTest, Start_Failures_Table) {
  struct Row {
    std::string_view line;
    long number;
  };
  for (const Row& row :
       {Row{"quillbank-no-such-program x", failure::kFileNotFound},
        Row{"/no/such/folder/program", failure::kFileNotFound},
        Row{" http://www.orb.example", failure::kFileNotFound}, Row{"", failure::kInvalidArgument},
        Row{"  ", failure::kInvalidArgument}, Row{"'open quote", failure::kInvalidArgument},
        Row{R"(\no\such program)", failure::kFileNotFound},
        Row{"\"\\no\\such program\" x", failure::kFileNotFound}, Row{"'' x", failure::kInvalidArgument},
        Row{"/etc", failure::kInvalidArgument}}) {
    try {
      shell_.Start(row.line);
      ADD_FAILURE() << "nothing was raised for " << row.line;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), row.number) << row.line;
    }
  }
}

TEST_F(LinuxShellTest, Start_ClosedFolderInTheSearchPath_AMissingProgramIsStillMissing) {
  const std::string before = std::getenv("PATH");
  const std::filesystem::path closed = Native(R"(\closed)");
  std::filesystem::create_directory(closed);
  std::filesystem::permissions(closed, std::filesystem::perms::none);
  setenv("PATH", (closed.string() + ":" + before).c_str(), 1);
  try {
    shell_.Start("quillbank-no-such-program");
    ADD_FAILURE() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), failure::kFileNotFound);
  }
  setenv("PATH", before.c_str(), 1);
  std::filesystem::permissions(closed, std::filesystem::perms::owner_all);
}

TEST_F(LinuxShellTest, BrowserOfTheDesktop_AnswersForItsKey) {
  const auto command = hive_.Query(Hive::kClassesRoot, R"(http\shell\open\command)", "");
  ASSERT_TRUE(command.has_value());
  EXPECT_EQ(command->data, std::string("quillbank-recorder open") + '\0');
  EXPECT_FALSE(hive_.Query(Hive::kClassesRoot, R"(http\shell\open\command)", "x").has_value());
  EXPECT_FALSE(hive_.Query(Hive::kCurrentUser, R"(http\shell\open\command)", "").has_value());
}

}  // namespace
}  // namespace qb
