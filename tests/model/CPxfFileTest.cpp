#include <gmock/gmock.h>

#include "model/CPxfFile.h"
#include "runtime/RuntimeError.h"
#include "support/Links.h"
#include "support/ModelTest.h"

namespace qb {
namespace {

using ::testing::HasSubstr;
using ::testing::Property;

class CPxfFileTest : public ModelTest {
 protected:
  using Access = PxfFileAccess;

  /// A package of one document with a translation of three files.
  static PackageBuilder OneDocument() {
    return PackageBuilder()
        .Loio("A")
        .Phio("DST_CURR", "dst")
        .File("a.css", "PRIM")
        .File("b.gif")
        .File("c.gif");
  }
};

TEST_F(CPxfFileTest, NewObject_BeforeInit_GivesDefaults) {
  CPxfFile file;
  EXPECT_EQ(file.strFileName, "");
  EXPECT_EQ(file.GetPxfTitle(), "");
  EXPECT_EQ(Access::GetRoPrefix(file), "old");
  EXPECT_FALSE(file.IsTouched());
  EXPECT_FALSE(file.IsQBTPackage());
  EXPECT_EQ(file.GetNumberOfLOIOs(), 0);
  EXPECT_FALSE(file.UpdateFileSize());
  EXPECT_EQ(Boxes().Shown().size(), 0U);
}

TEST_F(CPxfFileTest, Getters_ReadTheirKeys) {
  WritePackage(PackageBuilder()
                   .In("GLOBAL")
                   .Set("TITLE", "Pump \"P1\"")
                   .Set("SRCLANGUAGE", "de")
                   .Set("DSTLANGUAGE", "en")
                   .In("TRANS")
                   .Set("TERMINOLOGY", "glossary")
                   .Set("TRANSMEMORY", "notes.tmw")
                   .Set("QBT_WF", "local")
                   .Set("RO_PREFIX", "ro")
                   .Set("RW_PREFIX", "rw"));
  EXPECT_EQ(Package().GetPxfTitle(), "Pump \"P1\"");
  EXPECT_EQ(Package().GetTerminologyName(), "glossary");
  EXPECT_EQ(Package().GetTranslationMemoryName(), "notes.tmw");
  EXPECT_EQ(Package().GetQBTWorkflow(), "LOCAL");
  EXPECT_EQ(Access::GetSrcLanguage(Package()), "DE");
  EXPECT_EQ(Access::GetDstLanguage(Package()), "EN");
  EXPECT_EQ(Access::GetRoPrefix(Package()), "ro");
  EXPECT_EQ(Access::GetRwPrefix(Package()), "rw");
}

TEST_F(CPxfFileTest, Prefixes_EmptyOrAbsent_HaveTheirDefaults) {
  WritePackage(PackageBuilder());
  EXPECT_EQ(Access::GetRoPrefix(Package()), "old");
  EXPECT_EQ(Access::GetRwPrefix(Package()), "dst");
  WritePackage(PackageBuilder().In("TRANS").Set("RO_PREFIX", "").Set("RW_PREFIX", ""));
  EXPECT_EQ(Access::GetRoPrefix(Package()), "old");
  EXPECT_EQ(Access::GetRwPrefix(Package()), "dst");
}

TEST_F(CPxfFileTest, PackageTypes_FollowTheTable) {
  struct {
    const char* type;
    bool trados, own;
  } const rows[] = {{"TWB2", true, false},   {"GEN", false, true},     {"GEN_TWB", true, true},
                    {"gen_twb", true, true}, {"twb2", true, false},    {"Gen", false, true},
                    {"", false, false},      {"GENTWB", false, false}, {"TWB", false, false}};
  for (const auto& row : rows) {
    WritePackage(PackageBuilder().In("TRANS").Set("TRANSTYPE", row.type));
    EXPECT_EQ(Package().IsTradosPackage(), row.trados) << row.type;
    EXPECT_EQ(Package().IsQBTPackage(), row.own) << row.type;
  }
  WritePackage(PackageBuilder().In("TRANS").Without("TRANSTYPE"));
  EXPECT_FALSE(Package().IsTradosPackage());
  EXPECT_FALSE(Package().IsQBTPackage());
}

TEST_F(CPxfFileTest, IsLocalizationPackage_NeedsWorkflowAndKind) {
  struct {
    const char* type;
    const char* workflow;
    bool localization;
  } const rows[] = {{"GEN", "LOCAL", true},  {"gen_twb", "local", true}, {"TWB2", "LOCAL", false},
                    {"GEN", "TRANS", false}, {"GEN", "", false},         {"GEN", "LOCALIZE", false}};
  for (const auto& row : rows) {
    WritePackage(PackageBuilder().In("TRANS").Set("TRANSTYPE", row.type).Set("QBT_WF", row.workflow));
    EXPECT_EQ(Package().IsLocalizationPackage(), row.localization) << row.type << ' ' << row.workflow;
  }
}

TEST_F(CPxfFileTest, IsTouched_AnyNonEmptyValueCounts) {
  WritePackage(PackageBuilder());
  EXPECT_FALSE(Package().IsTouched());
  WritePackage(PackageBuilder().In("TRANS").Set("TOUCHED", ""));
  EXPECT_FALSE(Package().IsTouched());
  WritePackage(PackageBuilder().In("TRANS").Set("TOUCHED", "FALSE"));
  EXPECT_TRUE(Package().IsTouched());
}

TEST_F(CPxfFileTest, Touch_WritesMarkAndSize) {
  WritePackage(PackageBuilder().In("GLOBAL").Set("FILESIZE", "00000000"));
  EXPECT_TRUE(Package().Touch());
  EXPECT_EQ(Entry("TRANS", "TOUCHED"), "TRUE");
  EXPECT_EQ(std::stoul(Entry("GLOBAL", "FILESIZE")), PackageBytes().size());
}

TEST_F(CPxfFileTest, Touch_ReadOnlyFile_IsRefusedAndSaysWhy) {
  WritePackage(PackageBuilder());
  const std::string before = PackageBytes();
  ThePlatform().files->SetAttributes(kPackage, attribute::kReadOnly);
  EXPECT_FALSE(Package().Touch());
  EXPECT_EQ(PackageBytes(), before);
  EXPECT_THAT(TakeRefusedWrite(), HasSubstr(kPackage));
  EXPECT_EQ(TakeRefusedWrite(), "");
  EXPECT_EQ(Boxes().Shown().size(), 0U);
}

TEST_F(CPxfFileTest, UpdateFileSize_PadsToEightDigits) {
  WritePackage(PackageBuilder().In("GLOBAL").Set("FILESIZE", "1"));
  EXPECT_TRUE(Package().UpdateFileSize());
  EXPECT_TRUE(Package().UpdateFileSize());  // the first one changed the length
  const std::string size = Entry("GLOBAL", "FILESIZE");
  EXPECT_EQ(size.size(), 8U);
  EXPECT_EQ(std::stoul(size), PackageBytes().size());
}

TEST_F(CPxfFileTest, UpdateFileSize_MissingFile_IsFalseWithoutAWordAndMakesNone) {
  EXPECT_FALSE(Package().UpdateFileSize());
  EXPECT_FALSE(Exists(kPackage));
  EXPECT_EQ(Boxes().Shown().size(), 0U);
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(CPxfFileTest, UpdateFileSize_RemovesASectionNamedZero) {
  WritePackage(PackageBuilder().In("0").Set("A", "B"));
  EXPECT_TRUE(Package().UpdateFileSize());
  EXPECT_THAT(PackageBytes(), ::testing::Not(HasSubstr("[0]")));
}

TEST_F(CPxfFileTest, GetLocation_CountsOnlyAsTriple) {
  WritePackage(PackageBuilder()
                   .Loio("A")
                   .Set("MASTER", "7")
                   .Set("SEQNR1", " 8 rest")
                   .Set("SEQNR2", "text")
                   .Loio("B")
                   .Set("MASTER", "7")
                   .Set("SEQNR1", "8")
                   .Loio("C")
                   .Set("MASTER", "7")
                   .Set("SEQNR1", "")
                   .Set("SEQNR2", "9"));
  std::int32_t master = -1;
  std::int32_t subdocument = -1;
  std::int32_t slide = -1;
  for (const int incomplete : {2, 3, 4}) {
    Package().GetLocation(incomplete, master, subdocument, slide);
    EXPECT_EQ(master, -1);
    EXPECT_EQ(subdocument, -1);
    EXPECT_EQ(slide, -1);
  }
  Package().GetLocation(1, master, subdocument, slide);
  EXPECT_EQ(master, 7);
  EXPECT_EQ(subdocument, 8);
  EXPECT_EQ(slide, 0);
}

TEST_F(CPxfFileTest, Counts_AreReadLeniently) {
  struct {
    const char* text;
    int count;
  } const rows[] = {{"2", 2}, {"2 documents", 2}, {"none", 0}, {"-3", -3}, {"2.5", 2}, {"3.5", 4}};
  for (const auto& row : rows) {
    WritePackage(PackageBuilder()
                     .Loio("A")
                     .Set("PHIO_COUNT", row.text)
                     .Set("1FILE_COUNT", row.text)
                     .In("GLOBAL")
                     .Set("INFOBJS", row.text));
    CPxfFile file;
    file.Init(kPackage);
    EXPECT_EQ(file.GetNumberOfLOIOs(), row.count) << row.text;
    EXPECT_EQ(file.GetNumberOfPHIOs(1), row.count) << row.text;
    EXPECT_EQ(file.GetNumberOfFiles(1, 1), row.count) << row.text;
    EXPECT_FALSE(file.blnCountMissing);
  }
}

TEST_F(CPxfFileTest, Counts_Missing_AreZeroAndSetTheMark) {
  WritePackage(PackageBuilder().Loio("A").In("GLOBAL").Without("INFOBJS"));
  const auto missing = [&](auto read) {
    CPxfFile file;
    file.Init(kPackage);
    EXPECT_EQ(read(file), 0);
    EXPECT_TRUE(file.blnCountMissing);
  };
  missing([](CPxfFile& file) { return file.GetNumberOfLOIOs(); });
  missing([](CPxfFile& file) { return file.GetNumberOfPHIOs(1); });
  missing([](CPxfFile& file) { return file.GetNumberOfFiles(1, 1); });
}

TEST_F(CPxfFileTest, SectionsAndKeys_AreBuiltFromPlainNumbers) {
  WritePackage(PackageBuilder().In("1").Set("2PATH", "dst").Set("2FILE_NAME3", "c.gif").Set("KEY", "v"));
  EXPECT_EQ(Access::GetLOIOPXFEntry(Package(), 1, "KEY"), "v");
  EXPECT_EQ(Access::GetPHIOPXFEntry(Package(), 1, 2, "PATH"), "dst");
  EXPECT_EQ(Access::GetPHIOFilePXFEntry(Package(), 1, 2, 3, "FILE_NAME"), "c.gif");
  EXPECT_TRUE(Access::WriteLOIOPXFEntry(Package(), 1, "KEY", "w"));
  EXPECT_TRUE(Access::WritePHIOPXFEntry(Package(), 1, 10, "STATE", "MODIFIED"));
  EXPECT_TRUE(Access::WriteFilePXFEntry(Package(), 1, 2, 10, "FORMAT", "PRIM"));
  EXPECT_EQ(Entry("1", "KEY"), "w");
  EXPECT_EQ(Entry("1", "10STATE"), "MODIFIED");
  EXPECT_EQ(Entry("1", "2FORMAT10"), "PRIM");
}

TEST_F(CPxfFileTest, UnknownKeysLinesAndSections_AreKept) {
  WritePackage(
      PackageBuilder().Line("; a comment").In("FOREIGN").Set("Key", " value").Loio("A").Line("no equals"));
  const std::string before = PackageBytes();
  Package().SaveLOIOState(1, "MODIFIED");
  EXPECT_EQ(PackageBytes(), before + "PROGRESS=MODIFIED\r\n");
}

TEST_F(CPxfFileTest, DeletePXFEntry_BlankBeforeTheSection_StillHits) {
  WritePackage(OneDocument());
  EXPECT_TRUE(Package().DeletePXFEntry(" 1", "1FORMAT2"));
  EXPECT_THAT(PackageBytes(), ::testing::Not(HasSubstr("1FORMAT2")));
  EXPECT_EQ(Entry("GLOBAL", "FILESIZE").size(), 8U);
}

TEST_F(CPxfFileTest, States_AreWritten) {
  WritePackage(OneDocument());
  Package().SavePHIOState(1, 1, "MODIFIED");
  Package().SaveLOIOState(1, "COMPLETE");
  EXPECT_EQ(Entry("1", "1STATE"), "MODIFIED");
  EXPECT_EQ(Entry("1", "PROGRESS"), "COMPLETE");
  EXPECT_EQ(Entry("GLOBAL", "FILESIZE"), "");  // left to the caller
}

TEST_F(CPxfFileTest, FileNameAndPath_AreSplitAtTheLastSeparator) {
  struct {
    const char* file;
    const char* name;
    const char* path;
  } const rows[] = {
      {R"(C:\pkg\Trans.pxf)", "Trans.pxf", R"(C:\pkg)"},
      {R"(\Trans.pxf)", "Trans.pxf", ""},
      {"Trans.pxf", "Trans.pxf", ""},
      {R"(C:\pkg\)", "", "C:"},
      {"C:/pkg/Trans.pxf", "Trans.pxf", ""},
      {R"(C:\pkg/Trans.pxf)", "Trans.pxf", "C:"},
      {"", "", ""},
  };
  for (const auto& row : rows) {
    CPxfFile file;
    file.Init(row.file);
    EXPECT_EQ(file.GetPxfFileName(), row.name) << row.file;
    EXPECT_EQ(file.GetPxfPath(), row.path) << row.file;
  }
}

TEST_F(CPxfFileTest, TimeStampPair_NeverComesToAnEnd) {
  WritePackage(OneDocument());
  const std::string before = PackageBytes();
  const auto outOfStack = ::testing::Throws<RuntimeError>(Property(&RuntimeError::Number, 28));
  EXPECT_THAT([&] { Package().GetLoioTimeStamp(1, R"(\pkg\dst\a.css)"); }, outOfStack);
  EXPECT_THAT([&] { Package().SaveLoioTimeStamp(1, R"(\pkg\dst\a.css)"); }, outOfStack);
  EXPECT_EQ(PackageBytes(), before);
}

TEST_F(CPxfFileTest, GetFileModification_GivesFourteenDigits) {
  UseFakeClock();
  Write(R"(\pkg\dst\a.css)", "x");
  std::filesystem::last_write_time(
      Native(R"(\pkg\dst\a.css)"),
      std::chrono::file_clock::from_sys(std::chrono::sys_days{std::chrono::year{2003} / 5 / 17} +
                                        std::chrono::hours(9) + std::chrono::seconds(7)));
  EXPECT_EQ(Package().GetFileModification(R"(\pkg\dst\a.css)"), "20030517090007");
}

class IsInsidePackageTest : public CPxfFileTest {};

TEST_F(IsInsidePackageTest, PathsBelowThePackage_AreInside) {
  for (const char* path :
       {R"(\pkg\dst\a.doc)", R"(\pkg\a..b\c)", R"(\pkg\dst\missing\x)", R"(\pkg\.\a)", R"(\pkg\\dst\a)"}) {
    EXPECT_TRUE(Package().IsInsidePackage(path)) << path;
  }
}

TEST_F(IsInsidePackageTest, PathsThatLeave_AreOutside) {
  for (const char* path :
       {R"(\pkg\..\x)", R"(\pkg\dst\..\..\x)", R"(\pkg\dst/../../x)", R"(\pkg\C:\x)", R"(\pkg\dst\D:x)",
        R"(\other\x)", R"(\pkg2\x)", "", R"(C:\pkg\x)", R"(\pkg\dst\..)"}) {
    EXPECT_FALSE(Package().IsInsidePackage(path)) << path;
  }
}

TEST_F(IsInsidePackageTest, LinkOutOfThePackage_IsOutside) {
  MakeFolder(R"(\elsewhere)");
  Write(R"(\elsewhere\x)", "x");
  if (!MadeFolderLink(Native(R"(\elsewhere)"), Native(R"(\pkg\dst)"))) GTEST_SKIP() << kNoLinks;
  EXPECT_FALSE(Package().IsInsidePackage(R"(\pkg\dst\x)"));
  if (!MadeLink(Native(R"(\elsewhere\x)"), Native(R"(\pkg\y)"))) GTEST_SKIP() << kNoLinks;
  EXPECT_FALSE(Package().IsInsidePackage(R"(\pkg\y)"));
}

TEST_F(IsInsidePackageTest, PackageReachedThroughALink_IsInside) {
  MakeFolder(R"(\pkg\dst)");
  if (!MadeFolderLink(Native(R"(\pkg)"), Native(R"(\link)"))) GTEST_SKIP() << kNoLinks;
  Package().Init(R"(\link\Trans.pxf)");
  EXPECT_TRUE(Package().IsInsidePackage(R"(\link\dst\x)"));
}

TEST_F(IsInsidePackageTest, PackageAtTheRoot_HoldsTheWholeDrive) {
  Package().Init(R"(\Trans.pxf)");
  EXPECT_TRUE(Package().IsInsidePackage(R"(\dst\x)"));
  EXPECT_FALSE(Package().IsInsidePackage(R"(\..\x)"));
}

class ReplacedPackageTest : public CPxfFileTest {};

TEST_F(ReplacedPackageTest, Removed_WritesAreRefusedAndNothingComesBack) {
  LoadPackage(OneDocument());
  std::filesystem::remove(Native(kPackage));
  EXPECT_FALSE(Package().Touch());
  EXPECT_FALSE(Package().SavePhioFiles(1, *Loio("A").GetPhio(false)));
  Collection<std::string> links;
  links.Add("x");
  EXPECT_TRUE(Package().WriteHyperlinks(1, 1, &links));  // a refused write is no failure of the list
  CProperties properties;
  EXPECT_TRUE(Package().WritePHIOProperties(1, 1, properties));
  EXPECT_TRUE(Loio("A").ChangedTransition());
  EXPECT_FALSE(Exists(kPackage));
  EXPECT_THAT(TakeRefusedWrite(), HasSubstr("File not found"));
}

TEST_F(ReplacedPackageTest, ByAnotherPackage_KeepsItsBytes) {
  LoadPackage(OneDocument());
  WritePackage(
      PackageBuilder().Loio("OTHER").Phio("DST_CURR", "dst").File("a.css", "PRIM").Property("N", "V"));
  const std::string before = PackageBytes();
  EXPECT_TRUE(Loio("A").ChangedTransition());
  EXPECT_FALSE(Access::WriteLOIOPXFEntry(Package(), 1, "PROGRESS", "MODIFIED"));
  EXPECT_FALSE(Package().DeletePXFEntry(" 1", "1FORMAT1"));
  Collection<std::string> links;
  links.Add("x");
  Package().WriteHyperlinks(1, 1, &links);
  CProperties properties;
  Package().WritePHIOProperties(1, 1, properties);
  EXPECT_THAT(TakeRefusedWrite(), HasSubstr("another package stands in its place"));
  const std::string after = PackageBytes();
  EXPECT_EQ(Entry("1", "1PROPSECTION"), "ADD1");
  EXPECT_EQ(Entry("ADD1", "1VALUE"), "V");
  EXPECT_EQ(after.substr(after.find("[TRANS]")), before.substr(before.find("[TRANS]")));
}

TEST_F(ReplacedPackageTest, BySameDocumentsMovedOn_IsWrittenTo) {
  LoadPackage(OneDocument());
  WritePackage(OneDocument().In("GLOBAL").Set("TITLE", "edited by somebody else"));
  EXPECT_TRUE(Loio("A").ChangedTransition());
  EXPECT_EQ(Entry("1", "PROGRESS"), "MODIFIED");
  EXPECT_EQ(Entry("GLOBAL", "TITLE"), "edited by somebody else");
}

TEST_F(ReplacedPackageTest, NewPackageOpenedInTheSameObject_IsNotWrittenToByTheOldDocuments) {
  LoadPackage(OneDocument());
  Write(R"(\pkg\other.pxf)", PackageBuilder().Loio("OTHER").Text());
  Package().Init(R"(\pkg\other.pxf)");
  EXPECT_TRUE(Package().Touch());
  Loio("A").ChangedTransition();
  EXPECT_THAT(Bytes(R"(\pkg\other.pxf)"), ::testing::Not(HasSubstr("PROGRESS")));
}

}  // namespace
}  // namespace qb
