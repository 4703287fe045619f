#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/office/Failure.h"
#include "apps/office/LinkAddress.h"
#include "apps/office/LinkReader.h"
#include "apps/office/ProfileSettings.h"

namespace qb::office {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::vector<std::string> LinksIn(const std::string& text) {
  return ReadLinks("<office:document><office:body><office:text>" + text +
                   "</office:text></office:body></office:document>")
      .links;
}

TEST(LinkReaderTest, takesPiecesOfOneLinkForOne) {
  EXPECT_THAT(
      LinksIn("<text:p><text:a xlink:href='x'>a</text:a><text:bookmark/><text:span><text:a xlink:href='x'>b"
              "</text:a></text:span></text:p>"),
      ElementsAre("x"));
}

TEST(LinkReaderTest, keepsALinkThatStandsTwice) {
  EXPECT_THAT(LinksIn("<text:p><text:a xlink:href='x'>a</text:a> <text:a xlink:href='x'>b</text:a></text:p>"
                      "<text:p><text:a xlink:href='x'>c</text:a></text:p>"),
              ElementsAre("x", "x", "x"));
}

TEST(LinkReaderTest, leavesOutWhatIsDeletedOrAComment) {
  EXPECT_THAT(
      LinksIn(
          "<text:tracked-changes><text:p><text:a xlink:href='old'>a</text:a></text:p></text:tracked-changes>"
          "<text:p><office:annotation><text:p><text:a xlink:href='comment'>b</text:a></text:p>"
          "</office:annotation></text:p>"),
      IsEmpty());
}

TEST(LinkReaderTest, dropsLineBreaksInAddresses) {
  EXPECT_THAT(LinksIn("<text:p><text:a xlink:href='http://x/a&#10;b&#13;c'>a</text:a></text:p>"),
              ElementsAre("http://x/abc"));
}

TEST(LinkReaderTest, leavesOutAnEmptyAddress) {
  EXPECT_THAT(LinksIn("<text:p><text:a xlink:href=''>a</text:a><text:a>b</text:a></text:p>"), IsEmpty());
}

TEST(LinkReaderTest, countsALinkAroundAShapeAndItsActionOnce) {
  const Links links = ReadLinks(
      "<office:document><office:body><office:drawing><draw:page><draw:a xlink:href='x'><draw:rect>"
      "<office:event-listeners><presentation:event-listener "
      "xlink:href='x'/></office:event-listeners></draw:rect>"
      "</draw:a></draw:page></office:drawing></office:body></office:document>");
  ASSERT_EQ(links.slides.size(), 1U);
  EXPECT_THAT(links.slides[0], ElementsAre("x"));
}

TEST(LinkReaderTest, refusesWhatIsNoDocument) {
  EXPECT_THROW(ReadLinks("<office:document><text:p>"), Failure);
  EXPECT_THROW(ReadLinks(""), Failure);
}

TEST(LinkAddressTest, makesAddressesRelativeToTheDocument) {
  const auto address = [](const std::string& written) {
    return AddressIn("/home/u/pkg/a b/doc.odt", "/home/u/.cache/profile/copy.xml", written);
  };
  EXPECT_EQ(address("../../pkg/a%20b/near.htm#place"), "near.htm#place");
  EXPECT_EQ(address("../../pkg/x/far.htm"), "../x/far.htm");
  EXPECT_EQ(address("beside%20me.htm"), "../../.cache/profile/beside%20me.htm");
}

TEST(LinkAddressTest, namesInFullWhatLiesElsewhere) {
  EXPECT_EQ(AddressIn("/home/u/doc.odt", "/tmp/p/copy.xml", "../../c:/temp/x.doc"), "file:///c:/temp/x.doc");
}

TEST(LinkAddressTest, leavesOtherAddressesAsTheyAre) {
  for (const char* address : {"http://x/y", "mailto:a@b.c", "#here", "file:///c:/x", "/root", "?query", ""}) {
    EXPECT_EQ(AddressIn("/a/doc.odt", "/b/copy.xml", address), address);
  }
}

TEST(ProfileSettingsTest, keepsWhatTheUserHasSetOtherwise) {
  const std::string ours = WithSettings("");
  const std::string item =
      "<item oor:path=\"/x\"><prop oor:name=\"y\" oor:op=\"fuse\"><value>z</value></prop></item>\n";
  std::string changed = ours;
  changed.insert(changed.find("<item"), item);
  const std::string question =
      "<item oor:path=\"/org.openoffice.Office.Common/Save/Document\"><prop oor:name=\"WarnAlienFormat\" "
      "oor:op=\"fuse\"><value>true</value></prop></item>\n";
  changed.insert(changed.find("<item"), question);
  const std::string result = WithSettings(changed);
  EXPECT_THAT(result, HasSubstr(item));
  EXPECT_THAT(result, Not(HasSubstr(question)));
  EXPECT_EQ(WithSettings(result), result);
}

TEST(ProfileSettingsTest, turnsOffWhatLoadsADocumentAnew) {
  const std::string disabled = "/org.openoffice.Office.Commands/Execute/Disabled\"><node oor:name=\"Reload\"";
  const std::string ours = WithSettings("");
  EXPECT_THAT(ours, HasSubstr(disabled));
  EXPECT_EQ(WithSettings(ours), ours);
}

TEST(ProfileSettingsTest, replacesHalfAFile) {
  const std::string ours = WithSettings("");
  EXPECT_EQ(WithSettings(ours.substr(0, ours.size() / 2)), ours);
}

}  // namespace
}  // namespace qb::office
