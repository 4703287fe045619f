#include <gmock/gmock.h>

#include "support/FaultyFileSystem.h"
#include "support/WorkflowTest.h"
#include "workflow/DocumentCommands.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

class BadInputTest : public WorkflowTest {
 protected:
  void ReplaceIn(std::string_view old, std::string_view replacement) {
    const std::size_t at = text_.find(old);
    ASSERT_NE(at, std::string::npos) << old;
    text_.replace(at, old.size(), replacement);
  }
  /// Opens the package as it was made. True if the process ended.
  bool Open() {
    Write(kPackage, text_);
    return EndsProcess([this] { Start(kPackage); });
  }
  std::string Protocol() { return Bytes(R"(\pkg\Protocol.txt)"); }
  std::string text_ = SmallPackage();
};

TEST_F(BadInputTest, NoPackageAtAll_EndsWithItsBoxAndABackup) {
  text_ = "Dear reader,\r\nthis is a letter.\r\n";
  EXPECT_TRUE(Open());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Not a Quillbank Translator package.")));
  EXPECT_EQ(Bytes(R"(\pkg\Trans.BAK)"), text_);
}

TEST_F(BadInputTest, EmptyFile_EndsWithItsBox) {
  text_.clear();
  EXPECT_TRUE(Open());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Not a Quillbank Translator package.")));
}

TEST_F(BadInputTest, CutInTheMiddle_IsIllFormedAndEndsTheRun) {
  text_.resize(text_.find("2ROLE=SRC_CURR", text_.find("[2]")));
  EXPECT_TRUE(Open());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Ill-formed data encountered in PXF file")));
  EXPECT_THAT(Protocol(), HasSubstr("LOIO #2\r\nPHIO #2\r\n"));
  EXPECT_EQ(Bytes(R"(\pkg\Trans.BAK)"), text_);
}

TEST_F(BadInputTest, TwoHundredMegabytesOfOneLine_NeitherCrashNorHang) {
  text_ = "TITLE=" + std::string(200'000'000, 'x');
  EXPECT_TRUE(Open());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Not a Quillbank Translator package.")));
}

TEST_F(BadInputTest, TitleOfTenMegabytes_ComesBackWhole) {
  ReplaceIn("TITLE=Small package", "TITLE=" + std::string(10'000'000, 'x'));
  EXPECT_FALSE(Open());
  EXPECT_EQ(Window().TransPackTree.Root()->Title().size(), 10'000'000U);
}

TEST_F(BadInputTest, NegativeCount_IsAnEmptyPackage) {
  ReplaceIn("INFOBJS=2", "INFOBJS=-5");
  EXPECT_FALSE(Open());
  EXPECT_EQ(gLoios->Count(), 0U);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(BadInputTest, MoreDocumentsThanThereAre_IsIllFormed) {
  ReplaceIn("INFOBJS=2", "INFOBJS=2000000000");
  EXPECT_TRUE(Open());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Ill-formed data encountered in PXF file")));
}

TEST_F(BadInputTest, CountBeyondAllNumbers_IsReported) {
  ReplaceIn("INFOBJS=2", "INFOBJS=99999999999999999999");
  EXPECT_FALSE(Open());
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("CPxfFile::LoadData() #6:Overflow")));
  EXPECT_EQ(gPxfFile, nullptr);
}

TEST_F(BadInputTest, MoreFilesThanThePackageCanHold_IsReported) {
  ReplaceIn("1FILE_COUNT=1", "1FILE_COUNT=2000000000");
  EXPECT_FALSE(Open());
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("FILE_COUNT")));
  EXPECT_EQ(gPxfFile, nullptr);
}

TEST_F(BadInputTest, FileCountThatIsNone_IsATypeMismatch) {
  ReplaceIn("1FILE_COUNT=1", "1FILE_COUNT=many");
  EXPECT_FALSE(Open());
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("CPxfFile::LoadData() #13:")));
}

TEST_F(BadInputTest, GuidTwice_StopsTheLoadAndNamesIt) {
  ReplaceIn("LOIO=DOC2", "LOIO=DOC1");
  EXPECT_FALSE(Open());
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("DOC1")));
  EXPECT_THAT(Boxes().Texts()[0], HasSubstr("CLoioEntry::Init() #457:"));
  EXPECT_EQ(gPxfFile, nullptr);
}

TEST_F(BadInputTest, GuidWithSeparator_IsReportedAtItsCommand) {
  ReplaceIn("LOIO=DOC2", "LOIO=DOC_2");
  EXPECT_FALSE(Open());
  SelectNode("DOC_2");
  QbtMarkCompleted();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(AnyOf(HasSubstr("#5: "), HasSubstr("('DOC')"))));
  EXPECT_THAT(Protocol(), HasSubstr("#5: "));
}

struct HostilePath {
  const char* directory;
  const char* file;
};

class HostilePathTest : public BadInputTest, public ::testing::WithParamInterface<HostilePath> {};

TEST_P(HostilePathTest, LeavingThePackage_StartsNothing) {
  Write(R"(\outside\styles.css)", "x");
  Write(R"(\pkg\src\styles.css)", "x");
  ReplaceIn("1PATH=dst", "1PATH=" + std::string(GetParam().directory));
  ReplaceIn("1FILE_NAME1=styles.css", "1FILE_NAME1=" + std::string(GetParam().file));
  ASSERT_FALSE(Open());
  SelectNode("DOC1");
  EXPECT_FALSE(QbtTranslate());
  EXPECT_THAT(TheShell().requests, IsEmpty());
  EXPECT_THAT(Boxes().Texts(),
              Contains(AnyOf(HasSubstr("leads out of the package"), HasSubstr("does not exist"))));
  EXPECT_EQ(gLoios->Item("DOC1")->state->ExternalizeState(), "UNCHANGED");
}

INSTANTIATE_TEST_SUITE_P(Table, HostilePathTest,
                         ::testing::Values(HostilePath{R"(..\outside)", "styles.css"},
                                           HostilePath{R"(dst\..\..\outside)", "styles.css"},
                                           HostilePath{R"(\outside)", "styles.css"},
                                           HostilePath{R"(C:\outside)", "styles.css"},
                                           HostilePath{"dst", R"(..\..\outside\styles.css)"},
                                           HostilePath{".", R"(..\outside\styles.css)"}));

TEST_F(BadInputTest, DiskFullWhileMarking_SaysThatThePackageDidNotChange) {
  ASSERT_FALSE(Open());
  const std::string before = Bytes(kPackage);
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kReplaceContent, failure::kDiskFull, "Trans.pxf");
  SelectNode("DOC1");
  Boxes().AnswerNext(box::kYes);
  QbtMarkCompleted();
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("The package file could not be changed: ")));
  EXPECT_THAT(Protocol(), HasSubstr("The package file could not be changed: "));
  EXPECT_EQ(Bytes(kPackage), before);
  faults.Heal();
  SelectNode("DOC2");
  Boxes().AnswerNext(box::kYes);
  QbtMarkInProgress();
  EXPECT_EQ(Entry(kPackage, "2", "PROGRESS"), "MODIFIED");
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "COMPLETE") << "the mark that could not be written is not lost";
}

TEST_F(BadInputTest, PackageRemovedWhileOpen_IsNotMadeAnewAsAFragment) {
  ASSERT_FALSE(Open());
  ThePlatform().files->Remove(kPackage);
  SelectNode("DOC1");
  Boxes().AnswerNext(box::kYes);
  QbtMarkCompleted();
  EXPECT_FALSE(Exists(kPackage));
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("The package file could not be changed: ")));
}

TEST_F(BadInputTest, PackageReplacedByAnotherWhileOpen_IsLeftAlone) {
  ASSERT_FALSE(Open());
  std::string other = SmallPackage();
  other.replace(other.find("LOIO=DOC1"), 9, "LOIO=ABC9");
  Write(kPackage, other);
  SelectNode("DOC1");
  Boxes().AnswerNext(box::kYes);
  QbtMarkCompleted();
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "");
  EXPECT_EQ(Entry(kPackage, "1", "1STATE"), "UNCHANGED");
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("The package file could not be changed: ")));
}

TEST_F(BadInputTest, OtherProgramChangedTheFileMeanwhile_KeepsItsLines) {
  ASSERT_FALSE(Open());
  std::string changed = Bytes(kPackage);
  changed += "[NOTES]\r\nBY=someone else\r\n";
  Write(kPackage, changed);
  SelectNode("DOC1");
  Boxes().AnswerNext(box::kYes);
  QbtMarkCompleted();
  EXPECT_EQ(Entry(kPackage, "NOTES", "BY"), "someone else");
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "COMPLETE");
}

}  // namespace
}  // namespace qb
