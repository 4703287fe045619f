#include "support/WorkflowTest.h"
#include "workflow/RecentFiles.h"

namespace qb {
namespace {

class RecentFilesTest : public WorkflowTest {
 protected:
  RecentFilesTest() { Start(); }
  std::string Caption(int number) { return Window().mniFileRecent(number).Caption; }
};

TEST_F(RecentFilesTest, AddRecentFile_FifthFile_DropsTheOldest) {
  for (const char* path : {R"(\1)", R"(\2)", R"(\3)", R"(\4)", R"(\5)"}) AddRecentFile(path, false);
  EXPECT_EQ(Caption(1), R"(&1 \5)");
  EXPECT_EQ(Caption(2), R"(&2 \4)");
  EXPECT_EQ(Caption(3), R"(&3 \3)");
  EXPECT_EQ(Caption(4), R"(&4 \2)");
  EXPECT_EQ(gRecentCount, 5);
}

TEST_F(RecentFilesTest, AddRecentFile_ListedFile_KeepsItsPlace) {
  AddRecentFile(R"(\1)", false);
  AddRecentFile(R"(\2)", false);
  AddRecentFile(R"(\1)", false);
  EXPECT_EQ(Caption(1), R"(&1 \2)");
  EXPECT_EQ(gRecentCount, 2);
}

TEST_F(RecentFilesTest, AddRecentFile_EmptyOrDash_AddsNothing) {
  AddRecentFile("", true);
  AddRecentFile("-", true);
  EXPECT_EQ(gRecentCount, 0);
  EXPECT_FALSE(Window().mniSepRec.Visible);
}

TEST_F(RecentFilesTest, AddRecentFile_FirstFile_ShowsSeparatorAndItsEntryAlone) {
  AddRecentFile(R"(\1)", false);
  EXPECT_TRUE(Window().mniSepRec.Visible);
  EXPECT_TRUE(Window().mniFileRecent(1).Visible);
  EXPECT_FALSE(Window().mniFileRecent(2).Visible);
}

TEST_F(RecentFilesTest, IsInRecentFiles_ComparesWithCase) {
  AddRecentFile(R"(\a)", false);
  EXPECT_TRUE(IsInRecentFiles(R"(\a)"));
  EXPECT_FALSE(IsInRecentFiles(R"(\A)"));
}

TEST_F(RecentFilesTest, Click_OpensThePathOfTheCaption) {
  Write(R"(\pkg\a b.pxf)", SmallPackage());
  AddRecentFile(R"(\pkg\a b.pxf)", false);
  Window().mniFileRecent(1).Click();
  EXPECT_EQ(gPxfFile->strFileName, R"(\pkg\a b.pxf)");
  EXPECT_EQ(gLoios->Count(), 2U);
}

}  // namespace
}  // namespace qb
