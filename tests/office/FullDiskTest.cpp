#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "office/OfficeTest.h"
#include "support/FreshFolder.h"

namespace qb::office {
namespace {

using nlohmann::json;

/// An office in which a disk can run full, as long as a certain file is there.
class FullDiskTest : public OfficeTest {
 protected:
  static void SetUpTestSuite() {
    place_ = MakeFreshFolder();
    const std::filesystem::path launcher = place_ / "soffice";
    std::ofstream(launcher) << "#!/bin/sh\nexport QB_FULL_DISK='" << Switch().string() << "'\nLD_PRELOAD='"
                            << QB_FULL_DISK_LIBRARY << "' exec " << QB_OFFICE_PROGRAM << "/soffice \"$@\"\n";
    std::filesystem::permissions(launcher, std::filesystem::perms::owner_all);
    StartHelper({"--office", launcher.string()});
  }
  static void TearDownTestSuite() {
    OfficeTest::TearDownTestSuite();
    std::filesystem::remove_all(place_);
  }
  void TearDown() override {
    MakeRoom();
    OfficeTest::TearDown();
  }

  /// The disk with this folder runs full, or with everything.
  static void FillDisk(const std::string& folder) { std::ofstream(Switch()) << folder; }
  static void MakeRoom() { std::filesystem::remove(Switch()); }

  /// Waits for the dialog of this title, and leaves it.
  static void Dismiss(const std::string& title) {
    ASSERT_TRUE(PressIn(title + '$', "Escape")) << title;
    const std::string search = "xdotool search --onlyvisible --name '^" + title + "$' >/dev/null";
    ASSERT_TRUE(WaitUntil([&search] { return std::system(search.c_str()) != 0; })) << title;
  }

  void ExpectNothingSaved() {
    for (const json& line : Helper().Waiting()) EXPECT_NE(line.value("event", ""), "saved") << line;
  }

 private:
  static std::filesystem::path Switch() { return place_ / "full"; }
  static std::filesystem::path place_;
};

std::filesystem::path FullDiskTest::place_;

TEST_F(FullDiskTest, losesNothingAtTheClose) {
  for (const char* name : {"wartung/wartung.doc", "schulung/schulung.ppt", "glossar/glossar.htm"}) {
    for (const bool isWhole : {false, true}) {
      SCOPED_TRACE(std::string(name) + (isWhole ? " on a full machine" : " on a full disk"));
      const std::string folder = isWhole ? "all" : "one";
      const std::string path = Sample(name, folder + '/' + std::filesystem::path(name).filename().string());
      const std::string file = folder + '\\' + std::filesystem::path(name).filename().string();
      const std::string before = Content(file);
      const int document = Open(path);
      User().Write(path, "More");
      EXPECT_TRUE(WaitUntil([] { return WindowsOnScreen() == 1; }));
      FillDisk(isWhole ? "/" : std::filesystem::path(path).parent_path().string());
      const json error = Helper().Ask("close", {{"documents", {document}}});
      EXPECT_EQ(error.value("code", ""), "office") << error;
      ExpectNothingSaved();
      EXPECT_EQ(Content(file), before);
      EXPECT_TRUE(User().IsModified(path));
      EXPECT_EQ(WindowsOnScreen(), 1);
      MakeRoom();
      EXPECT_EQ(Helper().Ask("close", {{"documents", {document}}}), json::object());
      EXPECT_EQ(Helper().WaitForEvent("saved").value("document", 0), document);
      EXPECT_NE(Content(file), before);
      Close(Open(path));
      EXPECT_TRUE(WaitUntil([] { return WindowsOnScreen() == 0; }));
    }
  }
}

TEST_F(FullDiskTest, isToldToTheUserWhoSaves) {
  const std::string path = Sample("wartung/wartung.doc");
  const std::string before = Content("wartung.doc");
  const int document = Open(path);
  User().Write(path, "More");
  EXPECT_TRUE(WaitUntil([] { return WindowsOnScreen() == 1; }));
  FillDisk(Root());
  Press(path, "ctrl+s");
  // Neither the lock nor the document could be written.
  Dismiss("Lock file is corrupted");
  Dismiss("Error");
  ExpectNothingSaved();
  EXPECT_EQ(Content("wartung.doc"), before);
  MakeRoom();
  User().Command(path, ".uno:Save");
  EXPECT_EQ(Helper().WaitForEvent("saved").value("document", 0), document);
}

TEST_F(FullDiskTest, keepsNobodyFromReadingLinks) {
  Put("page.htm", "<html><body><p><a href=\"http://x/y\">z</a></p></body></html>");
  const int document = Open(Path("page.htm"));
  FillDisk("/");
  EXPECT_EQ(Helper().Ask("links", {{"document", document}}), json({{"links", {"http://x/y"}}}));
}

}  // namespace
}  // namespace qb::office
