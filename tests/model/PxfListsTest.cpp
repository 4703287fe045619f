#include <gmock/gmock.h>

#include "model/CPxfFile.h"
#include "runtime/Text.h"
#include "support/ModelTest.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class PxfListsTest : public ModelTest {
 protected:
  static PackageBuilder OneDocument() {
    return PackageBuilder()
        .Loio("A")
        .Phio("DST_CURR", "dst")
        .File("a.css", "PRIM")
        .File("b.gif")
        .File("c.gif");
  }

  bool WriteLinks(std::initializer_list<const char*> texts) {
    Collection<std::string> links;
    for (const char* text : texts) links.Add(text);
    return Package().WriteHyperlinks(1, 1, &links);
  }
};

TEST_F(PxfListsTest, NewAddSectionName_TakesTheFirstNameThatOccursNowhere) {
  struct {
    std::vector<const char*> sections;
    const char* name;
  } const rows[] = {{{}, "ADD1"},
                    {{"ADD1"}, "ADD2"},
                    {{"ADD2"}, "ADD1"},
                    {{"ADD10"}, "ADD2"},
                    {{"MYADD1"}, "ADD2"},
                    {{"XADD12Y", "ADD3"}, "ADD2"},
                    {{"ADD01"}, "ADD1"},
                    {{"ADD99999999999999999999999"}, "ADD1"},
                    {{"ADD", "ADDADD1"}, "ADD2"}};
  for (const auto& row : rows) {
    PackageBuilder package;
    for (const char* section : row.sections) package.In(section).Set("K", "V");
    WritePackage(package);
    EXPECT_EQ(Package().GetNewAddSectionName(), row.name) << row.sections.size();
  }
}

TEST_F(PxfListsTest, NewAddSectionName_TenSectionsOfWhichNineAreUsed_IsTheEleventh) {
  PackageBuilder package;
  for (int i = 1; i <= 10; ++i) package.In("ADD" + std::to_string(i)).Set("COUNT", "0");
  WritePackage(package);
  EXPECT_EQ(Package().GetNewAddSectionName(), "ADD11");
}

TEST_F(PxfListsTest, NewAddSectionName_ListingLongerThanTheBuffer_GivesNoNameInUse) {
  PackageBuilder package;
  std::string text = package.Text();
  for (int i = 1; i <= 9000; ++i) text += "[ADD" + std::to_string(i) + "]\r\nCOUNT=0\r\n";
  Write(kPackage, text);
  EXPECT_EQ(Package().GetNewAddSectionName(), "ADD9001");
}

TEST_F(PxfListsTest, WriteHyperlinks_NoList_IsFalseAndWritesNothing) {
  WritePackage(OneDocument());
  const std::string before = PackageBytes();
  EXPECT_FALSE(Package().WriteHyperlinks(1, 1, nullptr));
  EXPECT_EQ(PackageBytes(), before);
}

TEST_F(PxfListsTest, WriteHyperlinks_EmptyList_StillMakesTheSection) {
  WritePackage(OneDocument());
  EXPECT_TRUE(WriteLinks({}));
  EXPECT_EQ(Entry("1", "1ADDSECTION"), "ADD1");
  EXPECT_EQ(Entry("ADD1", "COUNT"), "0");
}

TEST_F(PxfListsTest, WriteHyperlinks_WritesTextsAsValues) {
  WritePackage(OneDocument());
  EXPECT_TRUE(WriteLinks({"http://a", "b.htm"}));
  EXPECT_THAT(PackageBytes(), HasSubstr("[ADD1]\r\nCOUNT=2\r\n1NAME=\r\n1VALUE=http://a\r\n1INFO=\r\n"
                                        "2NAME=\r\n2VALUE=b.htm\r\n2INFO=\r\n"));
  EXPECT_EQ(Entry("GLOBAL", "FILESIZE").size(), 8U);
}

TEST_F(PxfListsTest, WriteHyperlinks_ShorterList_LeavesTheRestOfTheOldOne) {
  WritePackage(OneDocument());
  WriteLinks({"a", "b", "c"});
  WriteLinks({"x", "y"});
  EXPECT_EQ(Entry("ADD1", "COUNT"), "2");
  EXPECT_EQ(Entry("ADD1", "2VALUE"), "y");
  EXPECT_EQ(Entry("ADD1", "3VALUE"), "c");
  EXPECT_THAT(PackageBytes(), Not(HasSubstr("[ADD2]")));
}

TEST_F(PxfListsTest, WritePHIOProperties_SecondTime_ReusesTheSection) {
  WritePackage(OneDocument());
  CProperties properties;
  properties.Add("N1", "V1", "I1", "");
  properties.Add("N2", "V2", "", "");
  EXPECT_TRUE(Package().WritePHIOProperties(1, 1, properties));
  properties.Item(1).Value = "other";
  EXPECT_TRUE(Package().WritePHIOProperties(1, 1, properties));
  EXPECT_EQ(Entry("1", "1PROPSECTION"), "ADD1");
  EXPECT_THAT(PackageBytes(), HasSubstr("[ADD1]\r\nCOUNT=2\r\n1NAME=N1\r\n1VALUE=other\r\n1INFO=I1\r\n"
                                        "2NAME=N2\r\n2VALUE=V2\r\n2INFO=\r\n"));
  EXPECT_THAT(PackageBytes(), Not(HasSubstr("[ADD2]")));
}

TEST_F(PxfListsTest, PropertiesAndLinks_ShareTheNames) {
  WritePackage(OneDocument());
  CProperties properties;
  Package().WritePHIOProperties(1, 1, properties);
  WriteLinks({"a"});
  EXPECT_EQ(Entry("1", "1PROPSECTION"), "ADD1");
  EXPECT_EQ(Entry("1", "1ADDSECTION"), "ADD2");
}

TEST_F(PxfListsTest, GetPHIOProperties_ReadsTheList) {
  WritePackage(OneDocument().Property("N1", "V1", "I1").Property("N2", "", ""));
  const auto properties = PxfFileAccess::GetPHIOProperties(Package(), 1, 1);
  ASSERT_NE(properties, nullptr);
  ASSERT_EQ(properties->Count(), 2U);
  EXPECT_EQ(properties->Item(1).Name, "N1");
  EXPECT_EQ(properties->Item(1).Value, "V1");
  EXPECT_EQ(properties->Item(1).Info, "I1");
  EXPECT_EQ(properties->Item(2).Value, "");
}

TEST_F(PxfListsTest, GetPHIOProperties_NoSectionOrCount_IsEmpty) {
  WritePackage(OneDocument());
  EXPECT_EQ(PxfFileAccess::GetPHIOProperties(Package(), 1, 1)->Count(), 0U);
  for (const char* count : {"", "none", "0", "-2"}) {
    WritePackage(OneDocument().Property("N", "V").In("ADD1").Set("COUNT", count));
    EXPECT_EQ(PxfFileAccess::GetPHIOProperties(Package(), 1, 1)->Count(), 0U) << count;
  }
}

TEST_F(PxfListsTest, GetPHIOProperties_EmptyName_ShowsTheMessageAndGivesNoList) {
  WritePackage(OneDocument().Property("N1", "V1").Property("", "V2"));
  EXPECT_EQ(PxfFileAccess::GetPHIOProperties(Package(), 1, 1), nullptr);
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Error while loading properties"));
}

TEST_F(PxfListsTest, SavePhioFiles_AfterRemovingOneOfThree_RewritesAndCleansUp) {
  LoadPackage(OneDocument());
  CPhioEntry& phio = *Loio("A").GetPhio(false);
  phio.Components.Remove(2);
  EXPECT_TRUE(Package().SavePhioFiles(1, phio));
  EXPECT_EQ(Entry("1", "1FILE_COUNT"), "2");
  EXPECT_EQ(Entry("1", "1FILE_NAME1"), "a.css");
  EXPECT_EQ(Entry("1", "1FILE_NAME2"), "c.gif");
  EXPECT_EQ(Entry("1", "1SHORT_NAME2"), "c.gif");
  for (const char* key : {"1FILE_NAME3", "1FORMAT3", "1SHORT_NAME3"}) {
    EXPECT_THAT(PackageBytes(), Not(HasSubstr(key)));
  }
}

TEST_F(PxfListsTest, SavePhioFiles_StopsCleaningUpAtTheFirstGap) {
  WritePackage(OneDocument().Set("1FILE_NAME5", "far.gif").Set("1FILE_COUNT", "3"));
  CPhioEntry phio;
  phio.Init(1, "DST_CURR", "G", "C", "", "", "dst", "UNCHANGED", nullptr, nullptr);
  phio.Add("only.css", "PRIM", "only.css", "");
  EXPECT_TRUE(Package().SavePhioFiles(1, phio));
  EXPECT_THAT(PackageBytes(), Not(HasSubstr("1FILE_NAME2")));
  EXPECT_THAT(PackageBytes(), Not(HasSubstr("1FILE_NAME3")));
  EXPECT_EQ(Entry("1", "1FILE_NAME5"), "far.gif");
}

TEST_F(PxfListsTest, SavePhioFiles_NoFiles_WritesTheCount) {
  WritePackage(OneDocument());
  CPhioEntry phio;
  phio.Init(1, "DST_CURR", "G", "C", "", "", "dst", "UNCHANGED", nullptr, nullptr);
  EXPECT_TRUE(Package().SavePhioFiles(1, phio));
  EXPECT_EQ(Entry("1", "1FILE_COUNT"), "0");
  EXPECT_THAT(PackageBytes(), Not(HasSubstr("1FILE_NAME1")));
}

TEST_F(PxfListsTest, LongValue_ComesBackWhole) {
  const std::string value(254, 'x');
  WritePackage(OneDocument().Property("DESCRIPTION", value).Property("LONG", std::string(3000, 'y')));
  const auto properties = PxfFileAccess::GetPHIOProperties(Package(), 1, 1);
  EXPECT_EQ(properties->Item(1).Value, value);
  EXPECT_EQ(properties->Item(2).Value, std::string(3000, 'y'));
}

}  // namespace
}  // namespace qb
