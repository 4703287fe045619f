#include <gmock/gmock.h>

#include "model/CPhioEntry.h"
#include "runtime/RuntimeError.h"
#include "support/ModelTest.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::Property;

/// Matches a failure by its number.
auto Number(long number) {
  return Property(&RuntimeError::Number, number);
}

class CPhioEntryTest : public ModelTest {
 protected:
  bool Init(CPhioEntry& phio, std::string_view role, std::string_view description = {}) {
    return phio.Init(1, role, "GUID", "CLASS", "DOC", description, "dst", "UNCHANGED",
                     std::make_shared<CHyperlinks>(), std::make_shared<CProperties>());
  }
};

TEST_F(CPhioEntryTest, Init_FourRoles_GiveTheirNumbers) {
  const char* const roles[] = {"DST_CURR", "SRC_CURR", "SRC_PREV", "DST_PREV"};
  for (int number = 0; number < 4; ++number) {
    CPhioEntry phio;
    EXPECT_TRUE(Init(phio, roles[number]));
    EXPECT_EQ(phio.erRole, number);
  }
}

TEST_F(CPhioEntryTest, Init_UnknownRole_StoresNothing) {
  for (const char* role : {"DST_CURR ", "dst_curr", "", "DST"}) {
    CPhioEntry phio;
    EXPECT_FALSE(Init(phio, role, "title")) << role;
    EXPECT_EQ(phio.PhioNo(), 0);
    EXPECT_EQ(phio.GetPath(), "");
    EXPECT_EQ(phio.GetState(), "");
    EXPECT_EQ(phio.GetDocumentFormat(), "");
    EXPECT_EQ(phio.Properties(), nullptr);
  }
}

TEST_F(CPhioEntryTest, Init_KnownRole_StoresEverything) {
  CPhioEntry phio;
  const auto hyperlinks = std::make_shared<CHyperlinks>();
  const auto properties = std::make_shared<CProperties>();
  ASSERT_TRUE(phio.Init(3, "SRC_PREV", "G", "C", "PPT", "D", "old\\src", "READONLY", hyperlinks, properties));
  EXPECT_EQ(phio.PhioNo(), 3);
  EXPECT_EQ(phio.GetDocumentFormat(), "PPT");
  EXPECT_EQ(phio.GetTitle(), "D");
  EXPECT_EQ(phio.GetPath(), "old\\src");
  EXPECT_EQ(phio.GetState(), "READONLY");
  EXPECT_EQ(phio.Hyperlinks(), hyperlinks);
  EXPECT_EQ(phio.Properties(), properties);
}

TEST_F(CPhioEntryTest, GetTitle_Description_HidesTheProperty) {
  CPhioEntry phio;
  Init(phio, "DST_CURR", "from the key");
  phio.Properties()->Add("DESCRIPTION", "from the property", "", "");
  EXPECT_EQ(phio.GetTitle(), "from the key");
}

TEST_F(CPhioEntryTest, GetTitle_NoDescription_TakesTheFirstPropertyOfExactlyThatName) {
  CPhioEntry phio;
  Init(phio, "DST_CURR");
  phio.Properties()->Add("Description", "wrong case", "", "");
  EXPECT_EQ(phio.GetTitle(), "");
  phio.Properties()->Add("DESCRIPTION", "first", "", "");
  phio.Properties()->Add("DESCRIPTION", "second", "", "");
  EXPECT_EQ(phio.GetTitle(), "first");
}

TEST_F(CPhioEntryTest, GetTitle_NoPropertyList_IsEmpty) {
  CPhioEntry phio;
  phio.Init(1, "DST_CURR", "G", "C", "", "", "dst", "UNCHANGED", nullptr, nullptr);
  EXPECT_EQ(phio.GetTitle(), "");
}

TEST_F(CPhioEntryTest, SetTitle_NoPropertyList_Raises91AndMakesNone) {
  CPhioEntry phio;
  phio.Init(1, "DST_CURR", "G", "C", "", "", "dst", "UNCHANGED", nullptr, nullptr);
  EXPECT_THAT([&] { phio.SetTitle(1, "x"); }, ::testing::Throws<RuntimeError>(Number(91)));
  EXPECT_THAT([&] { phio.SaveTitle(1); }, ::testing::Throws<RuntimeError>(Number(91)));
  EXPECT_EQ(phio.Properties(), nullptr);
}

TEST_F(CPhioEntryTest, SetTitle_Twice_AddsFirstAndWritesAllPropertiesThen) {
  LoadPackage(
      PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("a.css", "PRIM").Property("OTHER", "o", "i"));
  const std::string before = PackageBytes();
  CPhioEntry& phio = *Loio("A").GetPhio(false);
  EXPECT_TRUE(phio.SetTitle(1, "first"));
  EXPECT_EQ(PackageBytes(), before);
  EXPECT_EQ(phio.GetTitle(), "first");
  EXPECT_TRUE(phio.SetTitle(1, "second"));
  EXPECT_EQ(Entry("ADD1", "COUNT"), "2");
  EXPECT_EQ(Entry("ADD1", "1NAME"), "OTHER");
  EXPECT_EQ(Entry("ADD1", "1VALUE"), "o");
  EXPECT_EQ(Entry("ADD1", "1INFO"), "i");
  EXPECT_EQ(Entry("ADD1", "2NAME"), "DESCRIPTION");
  EXPECT_EQ(Entry("ADD1", "2VALUE"), "second");
}

TEST_F(CPhioEntryTest, SetTitle_Description_StaysWhatGetTitleAnswers) {
  LoadPackage(PackageBuilder()
                  .Loio("A")
                  .Phio("DST_CURR", "dst", "CSS", "old")
                  .File("a.css", "PRIM")
                  .Property("DESCRIPTION", "old too"));
  CPhioEntry& phio = *Loio("A").GetPhio(false);
  EXPECT_TRUE(phio.SetTitle(1, "new"));
  EXPECT_EQ(phio.GetTitle(), "old");
  EXPECT_EQ(Entry("ADD1", "1VALUE"), "new");
  EXPECT_EQ(Entry("1", "1DESCRIPTION"), "old");
}

TEST_F(CPhioEntryTest, SetTitle_TracesBothBranches) {
  LoadPackage(PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("a.css", "PRIM"));
  CPhioEntry& phio = *Loio("A").GetPhio(false);
  StartTrace();
  phio.SetTitle(1, "t");
  EXPECT_THAT(TraceLines(), ElementsAre("CPhioEntry.SetTitle: ->", "CPhioEntry.SetTitle: nstrTitle: 't'",
                                        "CPhioEntry.SetTitle: nstrTitle: 't'", "CPhioEntry.SetTitle: <-"));
  StartTrace();
  phio.SetTitle(1, "u");
  const std::vector<std::string> lines = TraceLines();
  ASSERT_GT(lines.size(), 4U);
  EXPECT_EQ(lines[0], "CPhioEntry.SetTitle: ->");
  EXPECT_EQ(lines[1], "CPhioEntry.SetTitle: nstrTitle: 'u'");
  EXPECT_EQ(lines[lines.size() - 2], "CPhioEntry.SetTitle: SetTitle: 'True'");
  EXPECT_EQ(lines.back(), "CPhioEntry.SetTitle: 1 <-");
}

TEST_F(CPhioEntryTest, SaveTitle_TrueMeansThatItFailed) {
  LoadPackage(PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("a.css", "PRIM"));
  CPhioEntry& phio = *Loio("A").GetPhio(false);
  EXPECT_FALSE(phio.SaveTitle(1));
  EXPECT_EQ(Entry("ADD1", "COUNT"), "0");
  std::filesystem::remove(Native(kPackage));
  EXPECT_TRUE(phio.SaveTitle(1));
}

TEST_F(CPhioEntryTest, SetState_OnlyMemory_SaveState_Writes) {
  LoadPackage(PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("a.css", "PRIM"));
  CPhioEntry& phio = *Loio("A").GetPhio(false);
  phio.SetState("MODIFIED");
  EXPECT_EQ(phio.GetState(), "MODIFIED");
  EXPECT_EQ(Entry("1", "1STATE"), "UNCHANGED");
  phio.SaveState(1);
  EXPECT_EQ(Entry("1", "1STATE"), "MODIFIED");
}

TEST_F(CPhioEntryTest, GetPRIMFileName_TakesThePrimaryElseTheFirst) {
  CPhioEntry phio;
  EXPECT_THAT([&] { phio.GetPRIMFileName(); }, ::testing::Throws<RuntimeError>(Number(9)));
  phio.Add("one", "", "", "");
  phio.Add("two", "prim", "", "");
  EXPECT_EQ(phio.GetPRIMFileName(), "one");
  phio.Add("three", "PRIM", "", "");
  EXPECT_EQ(phio.GetPRIMFileName(), "three");
}

TEST_F(CPhioEntryTest, GetFile_ComparesExactly) {
  CPhioEntry phio;
  const auto file = phio.Add("Chart.gif", "F", "S", "");
  EXPECT_EQ(phio.GetFile("Chart.gif"), file);
  EXPECT_EQ(phio.GetFile("chart.gif"), nullptr);
  EXPECT_EQ(file->FileFormat, "F");
  EXPECT_EQ(file->ShortName, "S");
}

TEST_F(CPhioEntryTest, Add_KeyIsOptionalAndMayBeUsedOnce) {
  CPhioEntry phio;
  phio.Add("a", "", "", "key");
  phio.Add("b", "", "", "");
  phio.Add("c", "", "", "");
  EXPECT_EQ(phio.Components.Item("KEY")->FileName, "a");
  EXPECT_THAT([&] { phio.Add("d", "", "", "Key"); }, ::testing::Throws<RuntimeError>(Number(457)));
  EXPECT_EQ(phio.Components.Count(), 3U);
  EXPECT_THAT([&] { phio.Components.Item("other"); }, ::testing::Throws<RuntimeError>(Number(5)));
}

TEST(CPropertiesTest, PositionsCountFromOne) {
  CProperties properties;
  EXPECT_EQ(properties.Count(), 0U);
  const CProperty& added = properties.Add("N", "V", "I", "K");
  EXPECT_EQ(added.Name, "N");
  EXPECT_EQ(properties.Item(1).Value, "V");
  EXPECT_EQ(properties.Item("k").Info, "I");
  EXPECT_THAT([&] { properties.Item(0); }, ::testing::Throws<RuntimeError>(Number(9)));
  EXPECT_THAT([&] { properties.Item(2); }, ::testing::Throws<RuntimeError>(Number(9)));
  EXPECT_THAT([&] { properties.Remove("other"); }, ::testing::Throws<RuntimeError>(Number(5)));
  properties.Remove("K");
  EXPECT_EQ(properties.Count(), 0U);
}

TEST(CHyperlinksTest, PositionsCountFromOne) {
  CHyperlinks hyperlinks;
  const auto added = hyperlinks.Add("place", "text", "url", "info", "K");
  EXPECT_EQ(added->URL(), "url");
  EXPECT_EQ(added->Placeholder(), "place");
  EXPECT_EQ(added->Info(), "info");
  hyperlinks.Add("p2", "", "u2", "", "");
  EXPECT_EQ(hyperlinks.Count(), 2U);
  EXPECT_EQ(hyperlinks.Item(1), added);
  EXPECT_EQ(hyperlinks.Item("k"), added);
  EXPECT_THAT([&] { hyperlinks.Item(0); }, ::testing::Throws<RuntimeError>(Number(9)));
  EXPECT_THAT([&] { hyperlinks.Add("", "", "", "", "K"); }, ::testing::Throws<RuntimeError>(Number(457)));
  const auto elements = hyperlinks.NewEnum();
  ASSERT_EQ(elements.size(), 2U);
  EXPECT_EQ(elements[1]->URL(), "u2");
  hyperlinks.Remove(1);
  EXPECT_EQ(hyperlinks.Item(1)->URL(), "u2");
}

}  // namespace
}  // namespace qb
