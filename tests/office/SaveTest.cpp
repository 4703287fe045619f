#include <filesystem>

#include "office/OfficeTest.h"

namespace qb::office {
namespace {

using nlohmann::json;

class SaveTest : public OfficeTest {
 protected:
  static int WaitForSaved() { return Helper().WaitForEvent("saved").value("document", 0); }
  static bool IsWordFile(const std::string& bytes) { return bytes.compare(0, 4, "\xd0\xcf\x11\xe0") == 0; }
};

TEST_F(SaveTest, aWordDocumentStaysOneWhenItsUserPressesTheKeys) {
  const std::string path = Sample("wartung/wartung.doc");
  const int document = Open(path);
  User().Write(path, "Added by the translator");
  Press(path, "ctrl+s");
  EXPECT_EQ(WaitForSaved(), document);
  EXPECT_TRUE(IsWordFile(Content("wartung.doc")));
  EXPECT_FALSE(User().IsModified(path));
  Close(document);
  Open(path);
  EXPECT_NE(User().Text(path).find("Added by the translator"), std::string::npos);
}

TEST_F(SaveTest, presentationsAndPagesKeepTheirFormat) {
  for (const char* name : {"schulung/schulung.ppt", "glossar/glossar.htm"}) {
    const std::string path = Sample(name);
    const int document = Open(path);
    User().Write(path, "More");
    Press(path, "ctrl+s");
    EXPECT_EQ(WaitForSaved(), document) << name;
    // Nothing was asked.
    EXPECT_EQ(WindowsOnScreen(), 1) << name;
    Close(document);
    EXPECT_TRUE(WaitUntil([] { return WindowsOnScreen() == 0; }));
  }
  EXPECT_TRUE(IsWordFile(Content("schulung.ppt")));
  EXPECT_NE(Content("glossar.htm").find("More"), std::string::npos);
  EXPECT_NE(Content("glossar.htm").find("<html"), std::string::npos);
}

TEST_F(SaveTest, theSourceCannotBeStoredOver) {
  const std::string path = Sample("wartung/wartung.doc");
  const std::string before = Content("wartung.doc");
  const int document = Open(path, true);
  User().Command(path, ".uno:EditDoc");
  Press(path, "ctrl+End");
  Press(path, "x");
  Press(path, "ctrl+s");
  User().Command(path, ".uno:Save");
  EXPECT_FALSE(User().IsModified(path));
  Close(document);
  EXPECT_EQ(Content("wartung.doc"), before);
  EXPECT_EQ(Helper().WaitForEvent("closed").value("document", 0), document);
}

TEST_F(SaveTest, aDocumentIsNotLoadedAnewInItsWindow) {
  const std::string path = Sample("wartung/wartung.doc");
  const int document = Open(path);
  for (const char* command : {".uno:Reload", ".uno:EditDoc"}) {
    User().Command(path, command);
    User().Write(path, "More");
    User().Command(path, ".uno:Save");
    EXPECT_EQ(WaitForSaved(), document) << command;
  }
}

TEST_F(SaveTest, theSourceOfOtherFormatsCannotBeStoredOver) {
  for (const std::string file : {"schulung/schulung.ppt", "glossar/glossar.htm"}) {
    const std::string path = Sample(file);
    const std::string name = file.substr(file.find('/') + 1);
    const std::string before = Content(name);
    const int document = Open(path, true);
    User().Command(path, ".uno:EditDoc");
    User().Write(path, "More");
    Press(path, "ctrl+s");
    User().Command(path, ".uno:Save");
    Close(document);
    EXPECT_EQ(Helper().WaitForEvent("closed").value("document", 0), document);
    EXPECT_EQ(Content(name), before) << name;
  }
}

TEST_F(SaveTest, aCopyIsNoSave) {
  const std::string path = Sample("wartung/wartung.doc");
  const int document = Open(path);
  Helper().Waiting();
  User().Write(path, "More");
  User().StoreCopy(path, Path("copy.doc"), "MS Word 97");
  Helper().Ask("title", {{"document", document}});
  for (const json& line : Helper().Waiting()) EXPECT_NE(line.value("event", ""), "saved") << line;
}

TEST_F(SaveTest, whatIsStoredUnderAnotherNameIsNoMoreThisFile) {
  const std::string path = Sample("wartung/wartung.doc");
  const int document = Open(path);
  User().StoreAs(path, Path("other.odt"), "writer8");
  User().Write(Path("other.odt"), "More");
  User().Command(Path("other.odt"), ".uno:Save");
  Helper().Ask("title", {{"document", document}});
  for (const json& line : Helper().Waiting()) EXPECT_NE(line.value("event", ""), "saved") << line;
}

TEST_F(SaveTest, aShareThatGoesAwayTakesNothingElseAlong) {
  const std::string path = Sample("wartung/wartung.doc", "share/wartung.doc");
  const std::string other = Sample("sicherheit/sicherheit.doc");
  const int document = Open(path);
  const int here = Open(other);
  User().Write(path, "Not lost");
  std::filesystem::remove_all(Path("share"));
  EXPECT_EQ(Helper().Ask("close", {{"documents", {document}}}).value("code", ""), "office");
  EXPECT_TRUE(Helper().Ask("links", {{"document", document}}).contains("links"));
  for (const json& line : Helper().Waiting()) EXPECT_FALSE(line.contains("event")) << line;
  User().Write(other, "More");
  User().Command(other, ".uno:Save");
  EXPECT_EQ(WaitForSaved(), here);
  Close(here);
  EXPECT_EQ(Helper().WaitForEvent("closed").value("document", 0), here);
  // What its user has written can still be stored elsewhere.
  User().StoreAs(path, Path("rescued.doc"), "MS Word 97");
  EXPECT_NE(User().Text(Path("rescued.doc")).find("Not lost"), std::string::npos);
  EXPECT_TRUE(IsWordFile(Content("rescued.doc")));
  EXPECT_EQ(Helper().Ask("close", {{"documents", {document}}}), json::object());
}

TEST_F(SaveTest, aSaveThatFailsIsNone) {
  const std::string path = Sample("wartung/wartung.doc", "share/wartung.doc");
  const int document = Open(path);
  User().Write(path, "More");
  std::filesystem::rename(Path("share"), Path("gone"));
  const json error = Helper().Ask("close", {{"documents", {document}}});
  EXPECT_EQ(error.value("code", ""), "office") << error;
  for (const json& line : Helper().Waiting()) EXPECT_FALSE(line.contains("event")) << line;
  // Nothing is lost: the text is still there, and is stored when the folder is.
  EXPECT_TRUE(User().IsModified(path));
  std::filesystem::rename(Path("gone"), Path("share"));
  EXPECT_EQ(Helper().Ask("close", {{"documents", {document}}}), json::object());
  EXPECT_EQ(WaitForSaved(), document);
}

}  // namespace
}  // namespace qb::office
