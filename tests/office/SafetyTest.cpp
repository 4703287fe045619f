#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <utility>
#include <vector>

#include "office/OfficeTest.h"

namespace qb::office {
namespace {

/// A place in the net that nobody should ask for anything.
class Listener {
 public:
  Listener() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    const bool listens = bind(socket_, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                         listen(socket_, 10) == 0 &&
                         getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size) == 0;
    EXPECT_TRUE(listens);
    url_ = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() { close(socket_); }

  const std::string& Url() const { return url_; }
  bool WasAsked() const { return accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC) >= 0 || errno != EAGAIN; }

 private:
  int socket_;
  std::string url_;
};

/// A document in one file; `head` stands before its body.
std::string Flat(const std::string& head, const std::string& body, const std::string& kind = "text") {
  return R"(<?xml version="1.0" encoding="UTF-8"?><office:document
xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:xlink="http://www.w3.org/1999/xlink"
xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"
xmlns:meta="urn:oasis:names:tc:opendocument:xmlns:meta:1.0" xmlns:script="urn:oasis:names:tc:opendocument:xmlns:script:1.0"
xmlns:dom="http://www.w3.org/2001/xml-events" xmlns:ooo="http://openoffice.org/2004/office"
xmlns:config="urn:oasis:names:tc:opendocument:xmlns:config:1.0"
office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.)" +
         kind + "\">" + head + "<office:body><office:" + kind + '>' + body + "</office:" + kind +
         "></office:body></office:document>";
}

class SafetyTest : public OfficeTest {
 protected:
  void Work(const std::string& path) {
    const int document = Open(path);
    User().Write(path, "More");
    Helper().Ask("links", {{"document", document}});
    Close(document);
  }
};

TEST_F(SafetyTest, fetchesNothingFromTheNet) {
  const Listener net;
  Put("net.html", "<html><head><link rel=\"stylesheet\" href=\"" + net.Url() +
                      "/s.css\"></head><body><p><img src=\"" + net.Url() + "/h.png\"><iframe src=\"" +
                      net.Url() + "/f.html\"></iframe></body></html>");
  const std::string always =
      "<office:settings><config:config-item-set "
      "config:name=\"ooo:configuration-settings\"><config:config-item "
      "config:name=\"LinkUpdateMode\" config:type=\"short\">2</config:config-item></config:config-item-set>"
      "</office:settings>";
  Put("net.fodt", Flat("<office:meta><meta:template xlink:type=\"simple\" xlink:href=\"" + net.Url() +
                           "/t.ott\" meta:date=\"2020-01-01T00:00:00\"/></office:meta>" + always,
                       "<text:section text:name=\"S\"><text:section-source xlink:href=\"" + net.Url() +
                           "/s.odt\"/><text:p>x</text:p></text:section><text:p><draw:frame svg:width=\"3cm\" "
                           "svg:height=\"3cm\" "
                           "text:anchor-type=\"as-char\"><draw:image xlink:type=\"simple\" xlink:href=\"" +
                           net.Url() + "/i.png\"/></draw:frame></text:p>"));
  for (const char* name : {"net.html", "net.fodt"}) {
    Work(Path(name));
    EXPECT_FALSE(net.WasAsked()) << name;
  }
}

TEST_F(SafetyTest, fetchesNothingForDocumentsOfEachFormat) {
  const Listener net;
  const std::string frame = "<draw:frame svg:width=\"3cm\" svg:height=\"3cm\" ";
  const std::string picture =
      "<draw:image xlink:type=\"simple\" xlink:href=\"" + net.Url() + "/i.png\"/></draw:frame>";
  const std::string page =
      "<draw:floating-frame xlink:type=\"simple\" xlink:href=\"" + net.Url() + "/f.html\"/></draw:frame>";
  const std::string anchor = "text:anchor-type=\"as-char\">";
  Put("net.fodt", Flat("<office:meta><meta:template xlink:type=\"simple\" xlink:href=\"" + net.Url() +
                           "/t.dot\" meta:date=\"2020-01-01T00:00:00\"/></office:meta>",
                       "<text:p>x" + frame + anchor + picture + frame + anchor + page + "</text:p>"));
  Put("net.fodp",
      Flat("", "<draw:page>" + frame + '>' + picture + frame + '>' + page + "</draw:page>", "presentation"));
  const std::vector<std::pair<std::string, std::string>> texts = {
      {"MS Word 97", "net.doc"}, {"MS Word 2007 XML", "net.docx"}, {"writer8", "net.odt"}};
  const std::vector<std::pair<std::string, std::string>> slides = {
      {"MS PowerPoint 97", "net.ppt"}, {"Impress MS PowerPoint 2007 XML", "net.pptx"}};
  const std::string wide("i\0.\0p\0n\0g", 9);
  for (const auto& [from, all] : {std::pair("net.fodt", texts), std::pair("net.fodp", slides)}) {
    const int source = Open(Path(from));
    for (const auto& [filter, name] : all) User().StoreCopy(Path(from), Path(name), filter);
    Close(source);
    // The first of them keeps the address where it can be seen.
    EXPECT_NE(Content(all.front().second).find(wide), std::string::npos);
    for (const auto& [filter, name] : all) {
      Work(Path(name));
      EXPECT_FALSE(net.WasAsked()) << name;
    }
  }
}

TEST_F(SafetyTest, runsNoMacros) {
  // An office that is told to trust every document writes the file.
  Put("macro.fodt",
      Flat(
          "<office:scripts><office:script script:language=\"ooo:Basic\"><ooo:libraries><ooo:library-embedded "
          "ooo:name=\"Standard\"><ooo:module ooo:name=\"M\"><ooo:source-code>Sub Main\nOpen \"" +
              Path("ran") +
              "\" For Output As #1\nClose #1\nEnd Sub</ooo:source-code></ooo:module></ooo:library-embedded>"
              "</ooo:libraries></office:script><office:event-listeners><script:event-listener "
              "script:language=\"ooo:script\" script:event-name=\"dom:load\" "
              "xlink:type=\"simple\" "
              "xlink:href=\"vnd.sun.star.script:Standard.M.Main?language=Basic&amp;location=document\"/>"
              "</office:event-listeners></office:scripts>",
          "<text:p>x</text:p>"));
  const int document = Open(Path("macro.fodt"));
  User().StoreCopy(Path("macro.fodt"), Path("macro.odt"), "writer8");
  Close(document);
  Work(Path("macro.odt"));
  Put("macro.htm",
      "<html><head><script language=\"STARBASIC\">\n' $LIBRARY: Standard\n' $MODULE: M\nSub Main\nOpen \"" +
          Path("ran") +
          "\" For Output As #1\nClose #1\nEnd Sub\n</script></head><body "
          "sdonload-StarBasic=\"document:Standard.M.Main\"><p>x</p></body></html>");
  Work(Path("macro.htm"));
  EXPECT_FALSE(Exists("ran"));
}

}  // namespace
}  // namespace qb::office
