#include <gmock/gmock.h>

#include "editors/gumbo/GumboHtmlParser.h"
#include "foundation/gRvdFile.h"
#include "support/BridgeTest.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kFile = R"(\pkg\page.html)";
constexpr std::size_t kLevels = 100000;

class GumboHtmlParserTest : public BridgeTest {
 protected:
  GumboHtmlParserTest() { StartWithWord(); }

  void Parse(std::string_view html) {
    Write(kFile, html);
    std::int32_t code = -1;
    std::vector<TaggedValue> found;
    parser_->Parse(kFile, found, 0, -1, code);
    EXPECT_EQ(code, 0);
    links_.clear();
    for (const TaggedValue& link : found) links_.push_back(TextOf(link));
  }
  std::string TitleOf(std::string_view html) {
    Parse(html);
    return parser_->Title();
  }
  std::vector<std::string> LinksOf(std::string_view html) {
    Parse(html);
    return links_;
  }
  static std::string Repeated(std::string_view text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) all += text;
    return all;
  }

  std::shared_ptr<IHtmlParser> parser_ = MakeGumboHtmlParser();
  std::vector<std::string> links_;
};

TEST_F(GumboHtmlParserTest, Links_ComeInDocumentOrderWithTheirDuplicates) {
  EXPECT_THAT(LinksOf(R"(<html><body><a href="b.html">B</a><map><area href="a.html"></map>
                         <p><A HREF='b.html'>again</A><a href=c.html#x>C</a></body></html>)"),
              ElementsAre("b.html", "a.html", "b.html", "c.html#x"));
}

TEST_F(GumboHtmlParserTest, Links_CharacterReferencesAreResolved) {
  EXPECT_THAT(LinksOf(R"(<a href="x?a=1&amp;b=2&#228;">x</a><a href='say "y"'>y</a>)"),
              ElementsAre("x?a=1&b=2\xC3\xA4", "say \"y\""));
}

TEST_F(GumboHtmlParserTest, Links_AnchorsAndEmptyAddressesAreNone) {
  EXPECT_THAT(LinksOf(R"(<a name="here">x</a><a href="">y</a><a href>z</a><a href=" ">w</a>)"), IsEmpty());
}

TEST_F(GumboHtmlParserTest, Links_BlanksAroundAndLineBreaksInsideAnAddressDoNotCount) {
  EXPECT_THAT(LinksOf("<a href=\" \r\n a/\r\n\tb.html \">x</a>"), ElementsAre("a/b.html"));
}

TEST_F(GumboHtmlParserTest, Links_InCommentsScriptsAndTextFieldsAreNone) {
  EXPECT_THAT(LinksOf(R"(<!-- <a href=1> --><script>"<a href=2>"</script><style><a href=3></style>
                         <textarea><a href=4></textarea><!DOCTYPE <a href=5><title><a href=6></title><a href=7>)"),
              ElementsAre("7"));
}

TEST_F(GumboHtmlParserTest, Links_CommentThatEndsOddly_HidesNothingBehindIt) {
  EXPECT_THAT(LinksOf("<!--><a href=1><!---><a href=2><!-- x --!><a href=3><!-- - -- > --><a href=4>"),
              ElementsAre("1", "2", "3", "4"));
}

TEST_F(GumboHtmlParserTest, Links_FirstOfTwoAddressesOfOneTagCounts) {
  EXPECT_THAT(LinksOf(R"(<a class="x>y" href=1 href=2>)"), ElementsAre("1"));
}

TEST_F(GumboHtmlParserTest, Title_IsShownAsABrowserDoes) {
  EXPECT_EQ(TitleOf("<title>\r\n  Tea &amp;\n\tcoffee </title><svg><title>Picture</title></svg>"),
            "Tea & coffee");
  EXPECT_EQ(TitleOf("<title>One <b>bold</b></title>"), "One <b>bold</b>");
  EXPECT_EQ(TitleOf("<p>None"), "");
}

TEST_F(GumboHtmlParserTest, Title_OfTheFileBefore_IsForgotten) {
  EXPECT_EQ(TitleOf("<title>One</title>"), "One");
  EXPECT_EQ(TitleOf("<p>None"), "");
}

TEST_F(GumboHtmlParserTest, Parse_MissingFile_RaisesItsName) {
  std::vector<TaggedValue> links;
  std::int32_t code = 0;
  try {
    parser_->Parse(R"(\pkg\none.html)", links, 0, -1, code);
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.Description(), ::testing::HasSubstr("none.html"));
  }
}

// --- code pages

TEST_F(GumboHtmlParserTest, CodePage_DeclaredByMeta) {
  EXPECT_EQ(TitleOf("<meta charset=utf-8><title>\xC3\xA4</title>"), "\xC3\xA4");
  EXPECT_EQ(TitleOf("<title>\xEF</title><META CHARSET='windows-1251'>"), "\xD0\xBF");
  EXPECT_EQ(TitleOf(R"(<meta http-equiv="content-type" content="text/html; charset=Shift_JIS"><title>)"
                    "\x8C\xEA</title>"),
            "\xE8\xAA\x9E");
}

TEST_F(GumboHtmlParserTest, CodePage_ByteOrderMarkComesFirst) {
  EXPECT_EQ(TitleOf("\xEF\xBB\xBF<meta charset=windows-1251><title>\xC3\xA4</title>"), "\xC3\xA4");
  EXPECT_EQ(TitleOf(std::string_view(
                "\xFF\xFE<\0t\0i\0t\0l\0e\0>\0\xE4\0\x3D\xD8\x00\xDE<\0/\0t\0i\0t\0l\0e\0>\0", 38)),
            "\xC3\xA4\xF0\x9F\x98\x80");
  EXPECT_EQ(TitleOf(std::string_view("\xFE\xFF\0<\0t\0i\0t\0l\0e\0>\0\xE4\0<\0/\0t\0i\0t\0l\0e\0>", 34)),
            "\xC3\xA4");
}

TEST_F(GumboHtmlParserTest, CodePage_NotDeclaredOrNotKnown_IsThatOfThePackage) {
  EXPECT_EQ(TitleOf("<title>\xE4</title>"), "\xC3\xA4");
  EXPECT_EQ(TitleOf("<meta charset=klingon><title>\xE4</title>"), "\xC3\xA4");
  std::string russian = Bytes(kPackage);
  ReplaceAll(russian, "DSTLANGUAGE=EN", "DSTLANGUAGE=RU");
  Write(kPackage, russian);
  EXPECT_EQ(TitleOf("<title>\xEF</title>"), "\xD0\xBF");
}

// --- files that mean harm

TEST_F(GumboHtmlParserTest, Hostile_HundredThousandLevels_AreReadToTheirEnd) {
  for (const char* tag :
       {"<div>", "<b>", "<table><tr><td>", "<ul><li>", "<svg>", "<a href=x>", "<font size=1><p>"}) {
    Parse(Repeated(tag, kLevels) + "<a href=end>");
    ASSERT_FALSE(links_.empty()) << tag;
    EXPECT_EQ(links_.back(), "end") << tag;
  }
}

TEST_F(GumboHtmlParserTest, Hostile_EndTagsWithoutNumber_AreReadToTheirEnd) {
  EXPECT_THAT(LinksOf(Repeated("</p></br></div>", kLevels) + "<a href=end>"), ElementsAre("end"));
}

TEST_F(GumboHtmlParserTest, Hostile_GiantAttribute_IsOneAddress) {
  const std::string giant(20000000, 'x');
  EXPECT_THAT(LinksOf("<a href=\"" + giant + "\">"), ElementsAre(giant));
}

TEST_F(GumboHtmlParserTest, Hostile_AttributesWithoutNumber_AreReadToTheirEnd) {
  std::string tag = "<a ";
  for (std::size_t i = 0; i < kLevels; ++i) tag += "a" + std::to_string(i) + "=1 ";
  EXPECT_THAT(LinksOf(tag + "href=end>"), ElementsAre("end"));
}

TEST_F(GumboHtmlParserTest, Hostile_NothingThatBeginsEverEnds) {
  EXPECT_THAT(LinksOf("<a href=1><!-- <a href=2>"), ElementsAre("1"));
  EXPECT_THAT(LinksOf("<a href=1><a href=\"2>"), ElementsAre("1"));
  EXPECT_THAT(LinksOf("<a href=1><a href"), ElementsAre("1"));
  EXPECT_THAT(LinksOf("<a href=1><script><a href=2>"), ElementsAre("1"));
  EXPECT_THAT(LinksOf("<a href=1><plaintext><a href=2>"), ElementsAre("1"));
  EXPECT_THAT(LinksOf("<a href=1><"), ElementsAre("1"));
  EXPECT_THAT(LinksOf("<a href=1></"), ElementsAre("1"));
  EXPECT_THAT(LinksOf("<a href=1></a href="), ElementsAre("1"));
  EXPECT_EQ(TitleOf("<title>To the end"), "To the end");
}

TEST_F(GumboHtmlParserTest, Hostile_ManyCommentsAndSignsThatNeverEnd_TakeNoLongTime) {
  EXPECT_THAT(LinksOf("<a href=1>" + Repeated("<!--x", kLevels)), SizeIs(1));
  EXPECT_THAT(LinksOf("<a href=1><script>" + Repeated("</scrip", kLevels)), SizeIs(1));
  EXPECT_THAT(LinksOf("<a href=1>" + Repeated("<", kLevels) + Repeated("<!--x--!>", kLevels)), SizeIs(1));
}

TEST_F(GumboHtmlParserTest, Hostile_ZeroBytes_DoNotEndTheText) {
  EXPECT_THAT(LinksOf(std::string_view("<p>\0\0<a href=1>\0<a hr\0ef=2><a href=3>", 38)),
              ElementsAre("1", "3"));
  EXPECT_EQ(TitleOf(std::string_view("<title>a\0b</title>", 18)),
            "a\xEF\xBF\xBD"
            "b");
}

TEST_F(GumboHtmlParserTest, Hostile_EmptyFileOrBareMark_HasNothing) {
  for (const char* html : {"", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    EXPECT_THAT(LinksOf(html), IsEmpty());
    EXPECT_EQ(parser_->Title(), "");
  }
  EXPECT_THAT(LinksOf("\xFF\xFE<"), IsEmpty()) << "half a character";
}

}  // namespace
}  // namespace qb
