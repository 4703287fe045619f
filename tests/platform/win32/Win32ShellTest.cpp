#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <thread>

#include "platform/FileSystemFixture.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Shell.h"
#include "platform/win32/Win32Text.h"

namespace qb {
namespace {

/// A file type whose verbs copy the file to "<verb>.out" on the drive.
class Win32ShellTest : public FileSystemTest {
 protected:
  Win32ShellTest() {
    Set(L".qbt", type_);
    for (const std::string_view verb : {"Translate", "Edit", "Open"}) {
      SetVerb(verb,
              R"(cmd.exe /c copy "%1" ")" + Native(R"(\)" + std::string(verb) + ".out").string() + "\"");
    }
  }
  ~Win32ShellTest() override {
    RegDeleteTreeW(HKEY_CLASSES_ROOT, L".qbt");
    RegDeleteTreeW(HKEY_CLASSES_ROOT, type_.c_str());
  }

  void SetVerb(std::string_view verb, const std::string& command) const {
    Set(type_ + LR"(\shell\)" + Wide(verb) + LR"(\command)", Wide(command));
  }

  /// The exit code, when the process has ended.
  std::uint32_t ExitCode(ProcessHandle process) {
    std::uint32_t code = Shell::kStillActive;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (shell_.GetExitCode(process, code) && code == Shell::kStillActive &&
           std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return code;
  }

  bool Runs(const ShellRequest& request) {
    ProcessHandle process = 0;
    if (!shell_.Execute(request, process)) return false;
    return process != 0 && ExitCode(process) == 0;
  }

  Win32Shell shell_{Root()};

 private:
  static void Set(const std::wstring& key, const std::wstring& value) {
    EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, value.c_str(),
                              static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
  }

  const std::wstring type_ = L"Quillbank.Test." + std::to_wstring(GetCurrentProcessId());
};

TEST_F(Win32ShellTest, Verbs_StartTheProgramOfTheType) {
  Put(R"(\a folder\doc.qbt)", "text");
  for (const std::string verb : {"Translate", "Edit", "Open"}) {
    EXPECT_TRUE(Runs({verb, "doc.qbt", {}, R"(\a folder)"})) << verb;
    EXPECT_EQ(Content(R"(\)" + verb + ".out"), "text");
  }
}

TEST_F(Win32ShellTest, FileAsAPath_NeedsNoFolder) {
  Put(R"(\a folder\doc.qbt)", "text");
  EXPECT_TRUE(Runs({"Open", R"(\a folder\doc.qbt)", {}, {}}));
  EXPECT_EQ(Content(R"(\Open.out)"), "text");
}

TEST_F(Win32ShellTest, Parameters_ArriveAsPathsOfTheMachine) {
  Put(R"(\doc.qbt)", "text");
  Put(R"(\src\a source.doc)", "source");
  SetVerb("Translate", R"(cmd.exe /c copy %* ")" + Native(R"(\param.out)").string() + "\"");
  EXPECT_TRUE(Runs({"Translate", "doc.qbt", R"("\src\a source.doc")", R"(\)"}));
  EXPECT_EQ(Content(R"(\param.out)"), "source");
}

TEST_F(Win32ShellTest, Process_IsActiveUntilItEnds_AndThenHasItsExitCode) {
  Put(R"(\doc.qbt)", "text");
  Put(R"(\wait.bat)", ":again\r\nif exist \"" + Native(R"(\go)").string() + "\" exit 7\r\ngoto again\r\n");
  SetVerb("Edit", R"(cmd.exe /c ")" + Native(R"(\wait.bat)").string() + "\"");
  ProcessHandle process = 0;
  ASSERT_TRUE(shell_.Execute({"Edit", "doc.qbt", {}, R"(\)"}, process));
  std::uint32_t code = 0;
  EXPECT_TRUE(shell_.GetExitCode(process, code));
  EXPECT_EQ(code, Shell::kStillActive);
  Put(R"(\go)", "");
  EXPECT_EQ(ExitCode(process), 7U);
}

TEST_F(Win32ShellTest, WhatCannotBeStarted_IsRefused) {
  Put(R"(\doc.qbt)", "text");
  Put(R"(\doc.nosuchtype)", "text");
  files_.MakeDirectory(R"(\folder.qbt)");
  ProcessHandle process = 4711;
  EXPECT_FALSE(shell_.Execute({"NoSuchVerb", "doc.qbt", {}, R"(\)"}, process));
  EXPECT_EQ(process, 0);
  EXPECT_FALSE(shell_.Execute({"Open", "missing.qbt", {}, R"(\)"}, process));
  EXPECT_FALSE(shell_.Execute({"Open", "doc.qbt", {}, R"(\missing)"}, process));
  EXPECT_FALSE(shell_.Execute({"Translate", "doc.nosuchtype", {}, R"(\)"}, process));
  EXPECT_FALSE(shell_.Execute({"Open", "folder.qbt", {}, R"(\)"}, process));
  EXPECT_FALSE(shell_.Execute({"", "doc.qbt", {}, R"(\)"}, process));
}

TEST_F(Win32ShellTest, FilesThatArePrograms_AreRefusedForEveryVerb) {
  for (const std::string file :
       {"a.exe", "a.COM", "a.scr", "a.pif", "a.msi", "a.lnk", "a.url", "a.chm", "a.jar"}) {
    Put(R"(\)" + file, "text");
    for (const std::string verb : {"Translate", "Edit", "Open"}) {
      ProcessHandle process = 0;
      EXPECT_FALSE(shell_.Execute({verb, file, {}, R"(\)"}, process)) << file << ' ' << verb;
    }
  }
  Put(R"(\doc.qbt)", "MZ\x90");
  ProcessHandle process = 0;
  EXPECT_FALSE(shell_.Execute({"Open", "doc.qbt", {}, R"(\)"}, process)) << "a program under another name";
  EXPECT_FALSE(shell_.Execute({"Open", "doc.exe.", {}, R"(\)"}, process));
}

TEST_F(Win32ShellTest, Scripts_AreEditedButNeverRun) {
  for (const std::string file : {"a.bat", "a.CMD", "a.js", "a.vbs", "a.hta", "a.wsf", "a.reg", "a.js. "}) {
    Put(R"(\)" + file.substr(0, file.find_last_not_of(". ") + 1), "text");
    ProcessHandle process = 0;
    EXPECT_FALSE(shell_.Execute({"Open", file, {}, R"(\)"}, process)) << file;
    EXPECT_FALSE(shell_.Execute({"runas", file, {}, R"(\)"}, process)) << file;
  }
}

TEST_F(Win32ShellTest, GetExitCode_UnknownProcess_Fails) {
  std::uint32_t code = 0;
  EXPECT_FALSE(shell_.GetExitCode(0, code));
  EXPECT_FALSE(shell_.GetExitCode(1234, code));
}

TEST_F(Win32ShellTest, Start_RunsACommandLine) {
  Put(R"(\from)", "text");
  EXPECT_NE(shell_.Start("cmd.exe /c copy \"" + Native(R"(\from)").string() + "\" \"" +
                         Native(R"(\started.out)").string() + "\""),
            0);
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (!Exists(R"(\started.out)") && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  EXPECT_TRUE(Exists(R"(\started.out)"));
}

TEST_F(Win32ShellTest, Start_ProgramOfTheCurrentFolder_IsNotTaken) {
  files_.MakeDirectory(R"(\package)");
  std::filesystem::copy_file(R"(C:\windows\system32\cmd.exe)", Native(R"(\package\planted.exe)"));
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(Native(R"(\package)"));
  for (const std::string_view line :
       {"planted.exe /c exit", "planted", "planted.exe", "\"planted.exe\" /c exit"}) {
    EXPECT_EQ(Raised([&] { shell_.Start(line); }), failure::kFileNotFound) << line;
  }
  std::filesystem::current_path(before);
}

TEST_F(Win32ShellTest, LongPaths_ReachTheProgramInAFormThatItTakes) {
  std::string folder;
  for (int i = 0; i < 6; ++i) folder += "\\" + std::string(45, static_cast<char>('a' + i));
  Put(folder + R"(\doc.qbt)", "text");
  EXPECT_TRUE(Runs({"Open", "doc.qbt", {}, folder}));
  EXPECT_EQ(Content(R"(\Open.out)"), "text");
}

TEST_F(Win32ShellTest, Start_Failures_Table) {
  Put(R"(\a text.txt)", "text");
  EXPECT_EQ(Raised([&] { shell_.Start("no-such-program.exe x"); }), failure::kFileNotFound);
  EXPECT_EQ(Raised([&] { shell_.Start(R"(\missing\program.exe)"); }), failure::kFileNotFound);
  EXPECT_EQ(Raised([&] { shell_.Start("  "); }), failure::kInvalidArgument);
  EXPECT_EQ(Raised([&] { shell_.Start(R"(\a text.txt)"); }), failure::kInvalidArgument);
}

}  // namespace
}  // namespace qb
