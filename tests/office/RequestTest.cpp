#include "office/OfficeTest.h"

namespace qb::office {
namespace {

using nlohmann::json;

class RequestTest : public OfficeTest {};

TEST_F(RequestTest, answersALineThatIsNoRequest) {
  const auto code = [](const std::string& line) {
    Helper().SendLine(line);
    const json answer = Helper().WaitFor([](const json& found) { return found.contains("error"); });
    return answer["error"].value("code", "");
  };
  EXPECT_EQ(code("nonsense"), "request");
  EXPECT_EQ(code("[1,2]"), "request");
  EXPECT_EQ(code(R"({"id":9000,"call":"dance"})"), "request");
  EXPECT_EQ(code(R"({"id":9001})"), "request");
  EXPECT_EQ(code(R"({"id":9002,"call":"open","path":7,"readOnly":false})"), "request");
  EXPECT_EQ(code(R"({"id":9003,"call":"open","path":"/x"})"), "request");
  EXPECT_EQ(code("{\"id\":9004,\"call\":\"open\",\"path\":\"\xff\",\"readOnly\":false}"), "request");
}

TEST_F(RequestTest, keepsACustomTitleApartFromTheBuiltInOne) {
  for (const char* name : {"wartung/wartung.doc", "schulung/schulung.ppt"}) {
    SCOPED_TRACE(name);
    const std::string path = Sample(name);
    int document = Open(path);
    const std::string builtIn = User().BuiltInTitle(path);
    EXPECT_EQ(Helper().Ask("title", {{"document", document}}), json({{"title", nullptr}}));
    Helper().Ask("setTitle", {{"document", document}, {"title", "Erste = [Zeile]\nzweite \"Ü\" 日本"}});
    EXPECT_FALSE(User().IsModified(path));
    Helper().Ask("setTitle", {{"document", document}, {"title", "Zweiter Titel"}});
    EXPECT_EQ(Helper().Ask("title", {{"document", document}}), json({{"title", "Zweiter Titel"}}));
    User().Write(path, "More");
    Helper().Ask("setTitle", {{"document", document}, {"title", "Erste = [Zeile]\nzweite \"Ü\" 日本"}});
    EXPECT_TRUE(User().IsModified(path));
    Close(document);
    document = Open(path);
    EXPECT_EQ(Helper().Ask("title", {{"document", document}}).value("title", ""),
              "Erste = [Zeile]\nzweite \"Ü\" 日本")
        << name;
    EXPECT_EQ(User().BuiltInTitle(path), builtIn);
  }
}

}  // namespace
}  // namespace qb::office
