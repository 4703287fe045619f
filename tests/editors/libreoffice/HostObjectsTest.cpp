#include <gmock/gmock.h>

#include "OfficeTest.h"

namespace qb {
namespace {

using testing::ElementsAre;

/// What documents answer about their titles and links.
class HostObjectsTest : public OfficeTest {
 protected:
  static constexpr const char* kPath = R"(\pkg\a.doc)";

  /// A document of this kind, which answers the next request with `answer`.
  std::shared_ptr<IBridgeDocument> OpenKind(const std::string& kind, const std::string& answer = "{}") {
    Script({kReady, "on open", R"({"id":$id,"result":{"document":1,"kind":")" + kind + R"("}})", "on links",
            R"({"id":$id,"result":)" + answer + "}", "serve"});
    return Open(*AddGroup(kPath), kPath);
  }
  std::shared_ptr<IBridgeProperty> TitleAnswered(const std::string& answer) {
    Script({kReady, "serve 1", "on title", R"({"id":$id,)" + answer + "}", "serve"});
    document_ = Open(*AddGroup(kPath), kPath);
    return document_->CustomProperties()->Item(std::string("Title"));
  }
  static std::vector<std::string> Addresses(AutomationObject& owner) {
    std::vector<std::string> addresses;
    for (const auto& link : owner.ObjectProperty("Hyperlinks")->Elements()) {
      addresses.push_back(link->TextProperty("Address"));
    }
    return addresses;
  }

  std::shared_ptr<IBridgeDocument> document_;
};

TEST_F(HostObjectsTest, ATextIsAskedLikeADocumentOfWord) {
  const auto document = OpenKind("text", R"({"links":["http://a","http://b","http://a"]})");
  EXPECT_EQ("Microsoft Word", document->Application()->TextProperty("Name"));
  EXPECT_THAT(Addresses(*document->HostDocument()), ElementsAre("http://a", "http://b", "http://a"));
}

TEST_F(HostObjectsTest, APresentationIsAskedLikeOneOfPowerPointSlideBySlide) {
  const auto document = OpenKind("presentation", R"({"slides":[["http://a","http://b"],[],["http://c"]]})");
  const auto application = document->Application();
  EXPECT_EQ("Microsoft PowerPoint", application->TextProperty("Name"));
  const auto slides = application->ObjectProperty("ActivePresentation")->ObjectProperty("Slides")->Elements();
  ASSERT_EQ(3U, slides.size());
  EXPECT_THAT(Addresses(*slides[0]), ElementsAre("http://a", "http://b"));
  EXPECT_THAT(Addresses(*slides[1]), ElementsAre());
  EXPECT_THAT(Addresses(*slides[2]), ElementsAre("http://c"));
}

TEST_F(HostObjectsTest, DrawingsAndHtmlHaveANameOfTheirOwnAndGiveTheirList) {
  for (const char* kind : {"drawing", "web"}) {
    TheOffice().End();
    const auto document = OpenKind(kind, R"({"links":["http://a","b"]})");
    EXPECT_EQ("LibreOffice", document->Application()->TextProperty("Name"));
    const auto links = document->Hyperlinks();
    ASSERT_EQ(2U, links->Count());
    EXPECT_EQ("b", links->Item(2));
  }
}

TEST_F(HostObjectsTest, TheListOfAPresentationHasTheLinksOfAllSlides) {
  const auto links = OpenKind("presentation", R"({"slides":[["http://a"],["http://b"]]})")->Hyperlinks();
  ASSERT_EQ(2U, links->Count());
  EXPECT_EQ("http://b", links->Item(2));
}

TEST_F(HostObjectsTest, AnAddressIsOneLineWhateverItHolds) {
  const auto document = OpenKind("text", R"({"links":["http://a\r\n/b\tc","x=[y]=z","",5]})");
  EXPECT_THAT(Addresses(*document->HostDocument()), ElementsAre("http://a/bc", "x=[y]=z", "", ""));
}

TEST_F(HostObjectsTest, TenThousandLongAddressesArrive) {
  nlohmann::json links = nlohmann::json::array();
  for (int i = 0; i < 10000; ++i) links.push_back(std::string(1000, 'x') + std::to_string(i));
  const auto document = OpenKind("text", nlohmann::json{{"links", links}}.dump());
  const auto addresses = Addresses(*document->HostDocument());
  ASSERT_EQ(10000U, addresses.size());
  EXPECT_EQ(std::string(1000, 'x') + "9999", addresses.back());
}

TEST_F(HostObjectsTest, AnAnswerWithoutLinksIsAnEmptyList) {
  EXPECT_THAT(Addresses(*OpenKind("text", R"({"links":7})")->HostDocument()), ElementsAre());
}

TEST_F(HostObjectsTest, OtherMembersRaise) {
  const auto document = OpenKind("text");
  const auto application = document->Application();
  EXPECT_THROW(application->TextProperty("Version"), RuntimeError);
  EXPECT_THROW(application->ObjectProperty("ActivePresentation"), RuntimeError);
  EXPECT_THROW(document->HostDocument()->ObjectProperty("Slides"), RuntimeError);
}

TEST_F(HostObjectsTest, TheTitleIsReadAsOneLine) {
  EXPECT_EQ("New  title", TextOf(TitleAnswered(R"("result":{"title":"New\r\ntitle"})")->Value()));
}

TEST_F(HostObjectsTest, ATitleThatIsNotThereRaises) {
  const auto title = TitleAnswered(R"("result":{"title":null})");
  EXPECT_THAT(RaisedBy([&] { title->Value(); }), testing::HasSubstr("Title"));
}

TEST_F(HostObjectsTest, ATitleIsWritten) {
  const auto document = Open(*AddGroup(kPath), kPath);
  document->CustomProperties()->Item(std::string("Title"))->Value(std::string("\u00DCbersicht"));
  EXPECT_EQ("\u00DCbersicht", Request("setTitle")["title"]);
  EXPECT_EQ(1, Request("setTitle")["document"]);
}

TEST_F(HostObjectsTest, AnotherPropertyRaises) {
  const auto properties = OpenKind("text")->CustomProperties();
  EXPECT_THROW(properties->Item(std::string("Author")), RuntimeError);
}

}  // namespace
}  // namespace qb
