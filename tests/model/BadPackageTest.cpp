#include <gmock/gmock.h>

#include <algorithm>

#include "foundation/CMessageHandler.h"
#include "model/CPxfFile.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "support/ModelTest.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kIllFormed =
    "Ill-formed data encountered in PXF file; please contact technical support staff.";

class BadPackageTest : public ModelTest {
 protected:
  static PackageBuilder OneDocument() {
    return PackageBuilder()
        .Loio("A")
        .Phio("DST_CURR", "dst", "CSS", "Styles")
        .File("a.css", "PRIM")
        .Phio("SRC_CURR", "src")
        .File("a.css", "PRIM");
  }

  /// The load must ask for the end of the program, after one box.
  void ExpectIllFormed(const PackageBuilder& package, std::string_view report) {
    Boxes().Forget();
    quits_.clear();
    WritePackage(package);
    EXPECT_FALSE(Load());
    EXPECT_THAT(quits_, ElementsAre(true));
    EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(kIllFormed)));
    EXPECT_THAT(Bytes(kProtocol), HasSubstr(report));
    EXPECT_EQ(Pointer().shapes.back(), MousePointer::kDefault);
  }

  /// The load must end with one box that names this failure.
  void ExpectFailure(const PackageBuilder& package, std::string_view failure) {
    Boxes().Forget();
    WritePackage(package);
    EXPECT_FALSE(Load());
    EXPECT_TRUE(quits_.empty());
    EXPECT_THAT(Boxes().Texts(), ElementsAre(StartsWith("CPxfFile::LoadData() #" + std::string(failure))));
    EXPECT_EQ(Pointer().shapes.back(), MousePointer::kDefault);
    EXPECT_EQ(Err.Number, 0);
  }
};

TEST_F(BadPackageTest, RequiredKeyOfADocument_Missing_QuitsWithTheReport) {
  ExpectIllFormed(OneDocument().In("1").Set("LOIO", "").Set("PROGRESS", "MODIFIED"),
                  "LOIO #1\r\nLOIO_CLASS: 'DOCUMENT'\r\nROLE: ''\r\nTECHNICAL_NAME: 'A'EDIT_PROCESS: "
                  "'CSS'PROGRESS: 'MODIFIED'");
  ExpectIllFormed(OneDocument().In("1").Without("CLASS"), "LOIO_CLASS: ''\r\n");
  ExpectIllFormed(OneDocument().In("1").Without("RVD_TECH_NAME"), "TECHNICAL_NAME: ''EDIT");
}

TEST_F(BadPackageTest, ReportOfADocument_NamesTheRoleReadLast) {
  ExpectIllFormed(OneDocument().Loio("").Phio("DST_CURR", "dst"),
                  "LOIO #2\r\nLOIO_CLASS: 'DOCUMENT'\r\nROLE: 'SRC_CURR'\r\n");
}

TEST_F(BadPackageTest, RequiredKeyOfAVersion_Missing_QuitsWithTheReport) {
  for (const char* key : {"2CLASS", "2PHIO", "2ROLE", "2PATH", "2STATE"}) {
    ExpectIllFormed(OneDocument().In("1").Without(key), "LOIO #1\r\nPHIO #2\r\nPHIO_CLASS: '");
  }
  ExpectIllFormed(
      OneDocument().In("1").Set("2PATH", ""),
      "LOIO #1\r\nPHIO #2\r\nPHIO_CLASS: 'DOCUMENT'\r\nROLE: 'SRC_CURR'\r\nDOCUMENT_FORMAT: 'CSS'");
}

TEST_F(BadPackageTest, FormatAndTitle_MayBeMissing) {
  LoadPackage(OneDocument().In("1").Without("1DOCUMENT_FORMAT").Without("1DESCRIPTION"));
  EXPECT_EQ(Loio("A").GetTitle(role::kDstCurr), "");
}

TEST_F(BadPackageTest, RoleInLowerCase_QuitsAndIsTraced) {
  StartTrace();
  ExpectIllFormed(OneDocument().In("1").Set("1ROLE", "dst_curr"), "ROLE: 'dst_curr'");
  EXPECT_THAT(TraceLines(), Contains("CPxfFile.LoadData: phio.Init failt (wrong role?)"));
}

TEST_F(BadPackageTest, IllFormed_KeepsWhatTheLoadHadWritten) {
  ExpectIllFormed(OneDocument().Loio(""), "LOIO #2");
  EXPECT_EQ(Entry("1", "PROGRESS"), "UNCHANGED");
}

TEST_F(BadPackageTest, QuitThatReleasesThePackageObject_IsSurvived) {
  WritePackage(OneDocument().In("1").Set("LOIO", ""));
  gModelQuestions.quitProgram = [](bool) { gPxfFile.reset(); };
  EXPECT_FALSE(Load());
  EXPECT_EQ(gPxfFile, nullptr);
}

TEST_F(BadPackageTest, QuitThatEndsTheProcess_LeavesTheFileWritten) {
  struct ProcessGone {};
  WritePackage(OneDocument().Loio(""));
  gModelQuestions.quitProgram = [this](bool) {
    EXPECT_EQ(Entry("1", "PROGRESS"), "UNCHANGED");
    throw ProcessGone{};
  };
  EXPECT_THROW(Load(), ProcessGone);
}

TEST_F(BadPackageTest, MoreDocumentsThanThereAre_AreIllFormed) {
  for (const char* count : {"2", "1000000", "2147483647"}) {
    ExpectIllFormed(OneDocument().In("GLOBAL").Set("INFOBJS", count), "LOIO #2");
  }
}

TEST_F(BadPackageTest, MoreVersionsThanThereAre_AreIllFormed) {
  ExpectIllFormed(OneDocument().In("1").Set("PHIO_COUNT", "2000000000"), "PHIO #3");
}

TEST_F(BadPackageTest, CountsThatDoNotFit_EndTheLoad) {
  ExpectFailure(OneDocument().In("GLOBAL").Set("INFOBJS", "99999999999"), "6:");
  ExpectFailure(OneDocument().In("1").Set("PHIO_COUNT", "99999999999"), "6:");
  ExpectFailure(OneDocument().In("1").Set("1FILE_COUNT", "99999999999"), "6:");
}

TEST_F(BadPackageTest, NegativeCounts_AreNone) {
  LoadPackage(OneDocument().In("GLOBAL").Set("INFOBJS", "-1"));
  EXPECT_EQ(gLoios->Count(), 0U);
  LoadPackage(OneDocument().In("1").Set("2FILE_COUNT", "-1"));
  EXPECT_EQ(Loio("A").PHIOs()[1]->Components.Count(), 0U);
}

TEST_F(BadPackageTest, DocumentWithoutVersions_HasNothingToShow) {
  ExpectFailure(OneDocument().In("1").Set("PHIO_COUNT", "-1"), "91:");
  EXPECT_EQ(List().AllRows().size(), 1U);  // its row was there before its file was asked for
}

TEST_F(BadPackageTest, FileCount_MissingOrNoNumber_EndsTheLoad) {
  for (const char* count : {"", "many", "2 files"}) {
    ExpectFailure(OneDocument().In("1").Set("2FILE_COUNT", count), "13:");
  }
  ExpectFailure(OneDocument().In("1").Without("1FILE_COUNT"), "13:");
}

TEST_F(BadPackageTest, FileCount_HigherThanTheFileHasBytes_EndsTheLoadAtOnce) {
  ExpectFailure(OneDocument().In("1").Set("1FILE_COUNT", "2147483647"),
                "6:Overflow: FILE_COUNT 2147483647 of LOIO #1, PHIO #1");
}

TEST_F(BadPackageTest, FileCountHigherThanTheFiles_FailsAtTheDoubledNode) {
  ExpectFailure(OneDocument().In("1").Set("1FILE_COUNT", "100"), "457:");
}

TEST_F(BadPackageTest, ShownVersionWithoutFiles_EndsTheLoadAtTheRow) {
  ExpectFailure(PackageBuilder().Loio("A").Phio("DST_CURR", "dst"), "9:");
  EXPECT_EQ(gLoios->Count(), 1U);
}

TEST_F(BadPackageTest, OnlyPreviousVersions_HaveNothingToShow) {
  ExpectFailure(PackageBuilder().Loio("A").Phio("SRC_PREV", "old").File("a.css", "PRIM"), "91:");
}

TEST_F(BadPackageTest, DoubledGuid_IsReportedTwiceAndEndsTheLoad) {
  for (const char* second : {"A", "a"}) {
    Boxes().Forget();
    WritePackage(OneDocument().Loio(second).Phio("DST_CURR", "dst").File("x", "PRIM").Loio("C"));
    EXPECT_FALSE(Load());
    EXPECT_THAT(Boxes().Texts(), ElementsAre(StartsWith("CLoioEntry::Init() #457:"),
                                             StartsWith("CPxfFile::LoadData() #457:")));
    EXPECT_EQ(gLoios->Count(), 1U);
    EXPECT_EQ(Entry("1", "PROGRESS"), "UNCHANGED");
    EXPECT_EQ(Entry("2", "PROGRESS"), "UNCHANGED");
  }
}

TEST_F(BadPackageTest, GuidWithUnderscore_Loads) {
  LoadPackage(PackageBuilder().Loio("A_B").Phio("DST_CURR", "dst").File("a.css", "PRIM"));
  EXPECT_EQ(Tree().Nodes("A_B_a.css").Parent(), &Tree().Nodes("A_B"));
}

TEST_F(BadPackageTest, GuidThatIsAnotherDocumentsFileKey_EndsTheLoad) {
  ExpectFailure(OneDocument().Loio("A_a.css").Phio("DST_CURR", "dst").File("x", "PRIM"), "457:");
  ExpectFailure(PackageBuilder().Loio("@ROOT").Phio("DST_CURR", "dst").File("x", "PRIM"), "457:");
}

TEST_F(BadPackageTest, PathsThatLeaveThePackage_LoadAndAreKnownAsOutside) {
  for (const char* path : {R"(..\..\etc)", R"(C:\Windows)", R"(dst\..\..)"}) {
    LoadPackage(PackageBuilder().Loio("A").Phio("DST_CURR", path).File("a.css", "PRIM"));
    EXPECT_FALSE(Package().IsInsidePackage(R"(\pkg\)" + Loio("A").GetTranslationFileName())) << path;
  }
}

TEST_F(BadPackageTest, NameWithSeparators_LoadsAndIsKnownAsOutside) {
  LoadPackage(PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File(R"(..\..\x)", "PRIM"));
  EXPECT_FALSE(Package().IsInsidePackage(R"(\pkg\)" + Loio("A").GetTranslationFileName()));
}

TEST_F(BadPackageTest, CutAnywhere_NeverCrashesAndNeverLosesALine) {
  const std::string whole = OneDocument().Property("DESCRIPTION", "Titel").Text();
  for (std::size_t length = 0; length < whole.size(); length += 7) {
    const std::string cut = whole.substr(0, length);
    Write(kPackage, cut);
    Load();
    const std::vector<std::string> after = Split(PackageBytes(), "\r\n");
    for (const std::string& line : Split(cut, "\r\n")) {
      EXPECT_NE(std::find(after.begin(), after.end(), line), after.end()) << length << ": " << line;
    }
  }
}

TEST_F(BadPackageTest, EmptyFileAndForeignFiles_AreEmptyPackages) {
  for (const std::string& bytes :
       {std::string(), std::string("hello"), std::string("\0\1\2\xFF[", 5), std::string(100000, '['),
        std::string("PK\3\4 not a package\r\n=\r\n]["), std::string("\xFF\xFE[\0G\0L\0", 8)}) {
    Write(kPackage, bytes);
    EXPECT_TRUE(Load());
    EXPECT_EQ(gLoios->Count(), 0U);
    EXPECT_FALSE(Package().IsQBTPackage());
    EXPECT_EQ(PackageBytes(), bytes);
  }
}

TEST_F(BadPackageTest, MissingFile_IsAnEmptyPackageAndStaysMissing) {
  EXPECT_TRUE(Load());
  EXPECT_EQ(gLoios->Count(), 0U);
  EXPECT_FALSE(Exists(kPackage));
}

TEST_F(BadPackageTest, DirectoryInItsPlace_IsAnEmptyPackage) {
  MakeFolder(kPackage);
  EXPECT_TRUE(Load());
  EXPECT_EQ(gLoios->Count(), 0U);
  EXPECT_FALSE(Package().Touch());
}

TEST_F(BadPackageTest, WithoutARootNode_TheLoadEnds) {
  WritePackage(OneDocument());
  Tree().RemoveNode("@ROOT");
  EXPECT_FALSE(Package().LoadData());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(StartsWith("CPxfFile::LoadData() #5:")));
}

TEST_F(BadPackageTest, FailureInTheLoad_IsTraced) {
  WritePackage(OneDocument().In("1").Set("1FILE_COUNT", "x"));
  StartTrace();
  Load();
  EXPECT_THAT(TraceLines(), Contains("CPxfFile.LoadData: err: '13' 'Type mismatch'"));
}

}  // namespace
}  // namespace qb
