#include <chrono>

#include "office/OfficeTest.h"

namespace qb::office {
namespace {

using nlohmann::json;

class LinksTest : public OfficeTest {
 protected:
  json Links(const std::string& path) {
    const int document = Open(path, true);
    return Helper().Ask("links", {{"document", document}});
  }
};

TEST_F(LinksTest, readsTheLinksOfATextInItsOrder) {
  Put("links.fodt", R"(<?xml version="1.0" encoding="UTF-8"?><office:document
xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:xlink="http://www.w3.org/1999/xlink"
xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" office:version="1.2"
office:mimetype="application/vnd.oasis.opendocument.text"><office:automatic-styles><style:page-layout style:name="L">
<style:header-style/><style:footer-style/></style:page-layout></office:automatic-styles><office:master-styles>
<style:master-page style:name="Standard" style:page-layout-name="L"><style:header><text:p><text:a xlink:href="http://x/header">h</text:a></text:p></style:header>
</style:master-page></office:master-styles><office:body><office:text>
<text:p>a <text:a xlink:href="http://x/one">b<text:span>c</text:span></text:a><text:a xlink:href="http://x/one">d</text:a> e <text:a xlink:href="http://x/one">f</text:a></text:p>
<table:table><table:table-column/><table:table-row><table:table-cell><text:p><text:a xlink:href="http://x/cell">x</text:a></text:p></table:table-cell></table:table-row></table:table>
<text:p><draw:a xlink:href="http://x/frame"><draw:frame svg:width="3cm" svg:height="2cm" text:anchor-type="as-char"><draw:text-box><text:p><text:a xlink:href="http://x/inframe">x</text:a></text:p></draw:text-box></draw:frame></draw:a>
<text:note text:note-class="footnote"><text:note-citation>1</text:note-citation><text:note-body><text:p><text:a xlink:href="http://x/note">n</text:a></text:p></text:note-body></text:note></text:p>
<text:p><draw:custom-shape svg:width="3cm" svg:height="2cm" text:anchor-type="as-char"><text:p><text:a xlink:href="http://x/shape">s</text:a></text:p></draw:custom-shape></text:p>
<text:p><text:a xlink:href="neighbour.htm#place">x</text:a><text:a xlink:href="../up/x%20y.doc">x</text:a><text:a xlink:href="#inside">x</text:a><text:a xlink:href="http://x/?a=[1]&amp;b=2">x</text:a></text:p>
</office:text></office:body></office:document>)");
  const json expected = {{"links",
                          {"http://x/one", "http://x/one", "http://x/cell", "http://x/frame",
                           "http://x/inframe", "http://x/note", "http://x/shape", "neighbour.htm#place",
                           "../up/x%20y.doc", "#inside", "http://x/?a=[1]&b=2", "http://x/header"}}};
  EXPECT_EQ(Links(Path("links.fodt")), expected);
  User().StoreCopy(Path("links.fodt"), Path("links.doc"), "MS Word 97");
  // That format keeps no links in shapes.
  json inWord = expected;
  inWord["links"].erase(6);
  EXPECT_EQ(Links(Path("links.doc")), inWord);
}

TEST_F(LinksTest, readsTheLinksOfEachSlide) {
  const std::string path = Sample("schulung/schulung.ppt");
  EXPECT_EQ(Links(path), json({{"slides", {json::array(), json::array(), json::array()}}}));
  Put("slides.fodp", R"(<?xml version="1.0" encoding="UTF-8"?><office:document
xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:xlink="http://www.w3.org/1999/xlink"
xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" xmlns:presentation="urn:oasis:names:tc:opendocument:xmlns:presentation:1.0"
xmlns:script="urn:oasis:names:tc:opendocument:xmlns:script:1.0" xmlns:dom="http://www.w3.org/2001/xml-events" office:version="1.2"
office:mimetype="application/vnd.oasis.opendocument.presentation"><office:body><office:presentation>
<draw:page><draw:frame svg:width="9cm" svg:height="2cm"><draw:text-box><text:p><text:a xlink:href="http://x/one">a</text:a> and <text:a xlink:href="http://x/two">b</text:a></text:p></draw:text-box></draw:frame></draw:page>
<draw:page/>
<draw:page><draw:g><draw:rect svg:width="3cm" svg:height="2cm"><office:event-listeners><presentation:event-listener script:event-name="dom:click" presentation:action="show" xlink:href="http://x/click"/></office:event-listeners></draw:rect></draw:g></draw:page>
</office:presentation></office:body></office:document>)");
  EXPECT_EQ(Links(Path("slides.fodp")),
            json({{"slides", {{"http://x/one", "http://x/two"}, json::array(), {"http://x/click"}}}}));
}

TEST_F(LinksTest, readsThemOutOfAllPartsOfASlide) {
  Put("parts.fodp", R"(<?xml version="1.0" encoding="UTF-8"?><office:document
xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:xlink="http://www.w3.org/1999/xlink"
xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" xmlns:presentation="urn:oasis:names:tc:opendocument:xmlns:presentation:1.0"
xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" office:version="1.2"
office:mimetype="application/vnd.oasis.opendocument.presentation"><office:body><office:presentation>
<draw:page><draw:frame svg:x="1cm" svg:y="1cm" svg:width="9cm" svg:height="4cm"><table:table><table:table-column/><table:table-column/>
<table:table-row><table:table-cell><text:p><text:a xlink:href="http://x/cell1">a</text:a></text:p></table:table-cell><table:table-cell><text:p><text:a xlink:href="http://x/cell2">b</text:a></text:p></table:table-cell></table:table-row>
</table:table></draw:frame>
<draw:custom-shape svg:width="3cm" svg:height="2cm"><text:p><text:a xlink:href="http://x/shape">s</text:a></text:p><draw:enhanced-geometry svg:viewBox="0 0 9 9" draw:type="rectangle" draw:enhanced-path="M 0 0 L 9 0 9 9 0 9 Z N"/></draw:custom-shape>
<draw:frame svg:width="9cm" svg:height="2cm"><draw:text-box><text:list><text:list-item><text:p><text:a xlink:href="http://x/list">l</text:a></text:p></text:list-item></text:list></draw:text-box></draw:frame>
<presentation:notes><draw:frame presentation:class="notes" svg:width="9cm" svg:height="9cm"><draw:text-box><text:p><text:a xlink:href="http://x/notes">n</text:a></text:p></draw:text-box></draw:frame></presentation:notes></draw:page>
<draw:page><draw:g><draw:g><draw:frame svg:width="9cm" svg:height="2cm"><draw:text-box><text:p><text:a xlink:href="http://x/group">g</text:a></text:p></draw:text-box></draw:frame></draw:g></draw:g></draw:page>
</office:presentation></office:body></office:document>)");
  const json expected = {
      {"slides",
       {{"http://x/cell1", "http://x/cell2", "http://x/shape", "http://x/list", "http://x/notes"},
        {"http://x/group"}}}};
  EXPECT_EQ(Links(Path("parts.fodp")), expected);
  User().StoreCopy(Path("parts.fodp"), Path("parts.ppt"), "MS PowerPoint 97");
  EXPECT_EQ(Links(Path("parts.ppt")), expected);
}

TEST_F(LinksTest, readsThemOutOfAllPartsOfAText) {
  Put("parts.fodt", R"(<?xml version="1.0" encoding="UTF-8"?><office:document
xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:xlink="http://www.w3.org/1999/xlink"
xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.text"><office:body><office:text>
<text:h text:outline-level="1"><text:a xlink:href="http://x/heading">h</text:a></text:h>
<text:list><text:list-item><text:p><text:a xlink:href="http://x/list">l</text:a></text:p></text:list-item></text:list>
<text:section text:name="S"><text:p><text:a xlink:href="http://x/section"><text:date text:fixed="true">1.1.2026</text:date></text:a></text:p></text:section>
<table:table><table:table-column/><table:table-row><table:table-cell><table:table table:is-sub-table="true"><table:table-column/><table:table-row><table:table-cell><text:p><text:a xlink:href="http://x/inner">i</text:a></text:p></table:table-cell></table:table-row></table:table></table:table-cell></table:table-row></table:table>
<text:p>x<text:note text:note-class="endnote"><text:note-citation>i</text:note-citation><text:note-body><text:p><text:a xlink:href="http://x/endnote">e</text:a></text:p></text:note-body></text:note><text:a xlink:href="http://x/field"><text:page-number>1</text:page-number></text:a></text:p>
</office:text></office:body></office:document>)");
  const json expected = {{"links",
                          {"http://x/heading", "http://x/list", "http://x/section", "http://x/inner",
                           "http://x/endnote", "http://x/field"}}};
  EXPECT_EQ(Links(Path("parts.fodt")), expected);
  User().StoreCopy(Path("parts.fodt"), Path("parts.doc"), "MS Word 97");
  EXPECT_EQ(Links(Path("parts.doc")), expected);
}

std::string TextWith(const std::string& paragraphs) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><office:document "
         "xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
         "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
         "xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
         "office:version=\"1.2\" office:mimetype=\"application/vnd.oasis.opendocument.text\"><office:body>"
         "<office:text>" +
         paragraphs + "</office:text></office:body></office:document>";
}

TEST_F(LinksTest, readsTenThousandLinksAtOnce) {
  std::string text;
  for (int link = 0; link < 10000; ++link) {
    text +=
        "<text:p>Word <text:a xlink:href=\"http://x/" + std::to_string(link) + "\">link</text:a></text:p>";
  }
  Put("many.fodt",
      TextWith(text + "<text:p><text:a xlink:href=\"http://x/" + std::string(10000, 'y') +
               "\">long</text:a> <text:a xlink:href=\"http://x/bro&#10;ken\">x</text:a></text:p>"));
  // One that asks for each of them takes longer than the helper's patience on a busy machine.
  const json links = Links(Path("many.fodt"))["links"];
  ASSERT_EQ(links.size(), 10002U);
  EXPECT_EQ(links[9999], "http://x/9999");
  EXPECT_EQ(links[10000].get<std::string>().size(), 10009U);
  // Encoded it is no line break in a package file, and belongs to the address.
  EXPECT_EQ(links[10001], "http://x/bro%0Aken");
  User().StoreCopy(Path("many.fodt"), Path("many.doc"), "MS Word 97");
  EXPECT_EQ(Links(Path("many.doc"))["links"], links);
}

TEST_F(LinksTest, takesNotLongerThanTheOfficeForAPageWithTenThousand) {
  std::string text = "<html><head><title>x</title></head><body>\n";
  for (int link = 0; link < 10000; ++link)
    text += "<p>Word <a href=\"http://x/" + std::to_string(link) + "\">link</a></p>\n";
  text += "<p><a href=\"http://x/" + std::string(10000, 'y') +
          "\">long</a> <a href=\"http://x/bro\nken\">x</a> " +
          "<a href=\"http://x/?a=[1]&amp;b=]\">x</a></p></body></html>";
  Put("many.htm", text);
  Put("alone.htm", text);
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  User().Load(Path("alone.htm"));
  const auto alone = Clock::now() - start;
  User().Unload(Path("alone.htm"));
  const auto begin = Clock::now();
  const json links = Links(Path("many.htm"))["links"];
  // The office still places the lines of a page that it has loaded, so more is asked of it than its loading.
  EXPECT_LT(Clock::now() - begin, 4 * alone + std::chrono::seconds(10));
  ASSERT_EQ(links.size(), 10003U);
  EXPECT_EQ(links[9999], "http://x/9999");
  EXPECT_EQ(links[10000].get<std::string>().size(), 10009U);
  EXPECT_EQ(links[10001], "http://x/broken");
  EXPECT_EQ(links[10002], "http://x/?a=[1]&b=]");
}

TEST_F(LinksTest, refusesToTellMoreLinksThanTheProgramReads) {
  const std::string address = "http://x/" + std::string(1000000, 'y');
  std::string text;
  for (int link = 0; link < 34; ++link) {
    text += "<text:p><text:a xlink:href=\"" + address + std::to_string(link) + "\">link</text:a></text:p>";
  }
  Put("long.fodt", TextWith(text));
  const int document = Open(Path("long.fodt"));
  const json error = Helper().Ask("links", {{"document", document}});
  EXPECT_EQ(error.value("code", ""), "office") << error.value("text", "");
  EXPECT_TRUE(Helper().Ask("title", {{"document", document}}).contains("title"));
}

}  // namespace
}  // namespace qb::office
