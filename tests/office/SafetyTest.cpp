#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

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

/// A text document in one file; `head` stands before its body.
std::string Flat(const std::string& head, const std::string& body) {
  return R"(<?xml version="1.0" encoding="UTF-8"?><office:document
xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:xlink="http://www.w3.org/1999/xlink"
xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"
xmlns:meta="urn:oasis:names:tc:opendocument:xmlns:meta:1.0" xmlns:script="urn:oasis:names:tc:opendocument:xmlns:script:1.0"
xmlns:ooo="http://openoffice.org/2004/office" xmlns:config="urn:oasis:names:tc:opendocument:xmlns:config:1.0"
office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.text">)" +
         head + "<office:body><office:text>" + body + "</office:text></office:body></office:document>";
}

class SafetyTest : public OfficeTest {};

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
    const int document = Open(Path(name));
    User().Write(Path(name), "More");
    Helper().Ask("links", {{"document", document}});
    Close(document);
    EXPECT_FALSE(net.WasAsked()) << name;
  }
}

TEST_F(SafetyTest, runsNoMacros) {
  Put("macro.fodt",
      Flat(
          "<office:scripts><office:script script:language=\"ooo:Basic\"><ooo:libraries><ooo:library-embedded "
          "ooo:name=\"Standard\"><ooo:module ooo:name=\"M\"><ooo:source-code>Sub Main\nOpen \"" +
              Path("ran") +
              "\" For Output As #1\nClose #1\nEnd Sub</ooo:source-code></ooo:module></ooo:library-embedded>"
              "</ooo:libraries></office:script><office:event-listeners><script:event-listener "
              "script:language=\"ooo:script\" script:event-name=\"dom:load\" "
              "xlink:href=\"vnd.sun.star.script:Standard.M.Main?language=Basic&amp;location=document\"/>"
              "</office:event-listeners></office:scripts>",
          "<text:p>x</text:p>"));
  Close(Open(Path("macro.fodt")));
  EXPECT_FALSE(Exists("ran"));
}

}  // namespace
}  // namespace qb::office
