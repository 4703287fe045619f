#include <gmock/gmock.h>

#include <string>

#include "apps/qbt/PackageContents.h"
#include "apps/qbt/PackageStatus.h"
#include "support/ModelTest.h"

namespace qb {
namespace {

/// What the readers tell of a package must be what the workbench has of it once it is open.
class PackageContentsTest : public ModelTest {
 protected:
  void ExpectSameAsModel(const PackageBuilder& package) {
    const std::string bytes = package.Text();  // as delivered: opening it changes it
    LoadPackage(package);
    const PackageSource source(kPackage, bytes);
    const PackageContents contents(source);
    ASSERT_EQ(gLoios->Count(), contents.Documents().size());
    for (const ListedDocument& document : contents.Documents()) {
      const CLoioEntry& loio = Loio(source.Text(document.guid.bytes));
      SCOPED_TRACE(std::string(loio.TechnicalName()));
      EXPECT_EQ(loio.LoioNo(), document.number);
      EXPECT_EQ(loio.GetTitle(role::kDstCurr), contents.Title(document, "DST_CURR"));
      EXPECT_EQ(loio.GetTitle(role::kSrcCurr), contents.Title(document, "SRC_CURR"));
      EXPECT_EQ(loio.GetDocumentFormat(), source.Text(contents.Format(document)));
      CState state = contents.State(document);
      state.OpenTransition();  // the readers keep open marks, opening takes them back
      EXPECT_EQ(loio.state->ExternalizeState(), state.ExternalizeState());
      ExpectSameFiles(*loio.GetPhio(true), *contents.Version(*document.Shown()));
    }
  }

  static void ExpectSameFiles(const CPhioEntry& expected, const CPhioEntry& found) {
    EXPECT_EQ(expected.GetPath(), found.GetPath());
    ASSERT_EQ(expected.Components.Count(), found.Components.Count());
    for (std::size_t i = 1; i <= expected.Components.Count(); ++i) {
      EXPECT_EQ(expected.Components.Item(i)->FileName, found.Components.Item(i)->FileName);
      EXPECT_EQ(expected.Components.Item(i)->FileFormat, found.Components.Item(i)->FileFormat);
    }
  }
};

TEST_F(PackageContentsTest, StatesOfAllKinds_AsTheModelHasThem) {
  PackageBuilder package;
  int number = 0;
  for (const char* progress :
       {"", "DUMMY", "UNCHANGED", "UNCHANGED_C_OPENUNCHANGED_T", "OPENUNCHANGED_C_MODIFIED_T",
        "MODIFIED_C_OPENUNCHANGED_T", "OPENMODIFIED_C_OPENMODIFIED_T", "COMPLETE", "READONLY",
        "READONLY_OPEN", "NONSENSE", "complete"}) {
    const std::string key = "D" + std::to_string(++number);
    package.Loio(key, "CSS", progress).Phio("DST_CURR", "dst").File(key + ".css", "PRIM");
  }
  package.Loio("SOURCEONLY").Phio("SRC_CURR", "src").File("a.css", "PRIM");
  ExpectSameAsModel(package);
}

TEST_F(PackageContentsTest, TitlesFromDescriptionAndProperties_AsTheModelHasThem) {
  ExpectSameAsModel(PackageBuilder()
                        .Loio("DESCRIBED")
                        .Phio("DST_CURR", "dst", "CSS", "Described")
                        .File("a.css", "PRIM")
                        .Property("DESCRIPTION", "Not this one")
                        .Loio("BYPROPERTY")
                        .Phio("DST_CURR", "dst")
                        .File("b.css", "PRIM")
                        .Property("OTHER", "Not this one either")
                        .Property("DESCRIPTION", "By property")
                        .Loio("UNTITLED")
                        .Phio("SRC_CURR", "src", "CSS", "Source only")
                        .File("c.css", "PRIM"));
}

TEST_F(PackageContentsTest, OrderAndPrimaryOfFiles_AsTheModelHasThem) {
  ExpectSameAsModel(PackageBuilder()
                        .Loio("SECOND")
                        .Phio("DST_CURR", "dst")
                        .File("a.gif")
                        .File("b.css", "PRIM")
                        .File("c.gif", "prim")
                        .Loio("NONE")
                        .Phio("DST_CURR", "dst")
                        .File("d.gif")
                        .File("e.gif")
                        .Loio("TWO")
                        .Phio("DST_CURR", "dst")
                        .File("f.gif")
                        .File("g.css", "PRIM")
                        .File("h.css", "PRIM"));
}

TEST_F(PackageContentsTest, FormatOfALaterVersion_AsTheModelHasIt) {
  ExpectSameAsModel(PackageBuilder()
                        .Loio("OLD")
                        .Phio("SRC_PREV", "old", "PPT")
                        .File("a.ppt", "PRIM")
                        .Phio("SRC_CURR", "src", "")
                        .File("a.ppt", "PRIM")
                        .Phio("DST_CURR", "dst", "")
                        .File("a.ppt", "PRIM"));
}

TEST_F(PackageContentsTest, SpellingOfKeys_AsTheModelReadsIt) {
  PackageBuilder package;
  package.Loio("SPELLED").Phio("DST_CURR", "dst", "CSS", "Title").File("a.css", "PRIM");
  std::string text = package.Text();
  for (const auto& [from, to] : {std::pair{"1DESCRIPTION=Title", "  1description =  \"Title\"  "},
                                 std::pair{"[1]", " [ 1 ] trailing"}, std::pair{"PROCESS=", "process = "}}) {
    text.replace(text.find(from), std::string(from).size(), to);
  }
  Write(kPackage, text);
  ASSERT_TRUE(Load());
  const PackageSource source(kPackage, text);
  const PackageContents contents(source);
  ASSERT_EQ(1U, contents.Documents().size());
  EXPECT_EQ(Loio("SPELLED").GetTitle(role::kDstCurr),
            contents.Title(contents.Documents().front(), "DST_CURR"));
  EXPECT_EQ("Title", contents.Title(contents.Documents().front(), "DST_CURR"));
}

TEST_F(PackageContentsTest, Status_CountsWhatTheModelHas) {
  PackageBuilder package;
  package.Loio("A", "CSS", "COMPLETE").Phio("DST_CURR", "dst").File("a.css", "PRIM").File("a.gif");
  package.Loio("B", "CSS", "OPENMODIFIED_C_UNCHANGED_T").Phio("DST_CURR", "dst").File("b.css", "PRIM");
  package.Loio("C").Phio("SRC_CURR", "src").File("c.css", "PRIM");
  const PackageSource source(kPackage, package.Text());
  const PackageStatus status = StatusOf(PackageContents(source));
  EXPECT_EQ(1U, status.all[Progress::kCompleted].documents);
  EXPECT_EQ(2U, status.all[Progress::kCompleted].files);
  EXPECT_EQ(1U, status.all[Progress::kOpen].documents);
  EXPECT_EQ(1U, status.all[Progress::kReadOnly].documents);
  EXPECT_DOUBLE_EQ(50.0, status.all.PercentCompleted());
}

}  // namespace
}  // namespace qb
