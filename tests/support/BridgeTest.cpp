#include "support/BridgeTest.h"

#include "foundation/gRvdFile.h"
#include "runtime/Text.h"

namespace qb {

void BridgeTest::StartWith(std::string_view process, std::string_view format) {
  const std::string name = "text." + LowerCase(format);
  std::string text = SmallPackage();
  ReplaceAll(text, "styles.css", name);
  ReplaceAll(text, "PROCESS=CSS", "PROCESS=" + std::string(process));
  ReplaceAll(text, "DOCUMENT_FORMAT=CSS", "DOCUMENT_FORMAT=" + std::string(format));
  ReplaceAll(text, "1DESCRIPTION=Styles", "1PROPSECTION=ADD2");
  text += "[ADD2]\r\nCOUNT=1\r\n1NAME=DESCRIPTION\r\n1VALUE=Styles\r\n1INFO=\r\n";
  Write(kPackage, text);
  translation_ = R"(\pkg\dst\)" + name;
  source_ = R"(\pkg\src\)" + name;
  for (const std::string& path :
       {translation_, source_, std::string(R"(\pkg\dst\menu.js)"), std::string(R"(\pkg\src\menu.js)")}) {
    Write(path, "content");
  }
  TheClock().SetLocalNow({2200, 1, 1, 0, 0, 0});
  office_ = ScriptedBridge::Install();
  for (const char* type : {"application/msword", "application/vnd.ms-powerpoint", "vnd.visio", "text/html"}) {
    for (const char* capability : {" 9", " 25", " 28"})
      office_->capabilities[type + std::string(capability)] = 1;
  }
  if (format == "PPT") Translation().application = "Microsoft PowerPoint";
  if (format == "VSD") Translation().application = "Microsoft Visio";
  if (format == "HTML") Translation().application = "HTML editor";
  Start(kPackage);
  session_->OnClose = [this] { ++closes_; };
}

void BridgeTest::OpenSession() {
  gLoios->Item("DOC1")->ContentEditTransition();
  ASSERT_TRUE(session_->OpenForTranslation("DOC1"));
  Office().Forget();
}

std::string BridgeTest::State() {
  return gLoios->Item("DOC1")->state->ExternalizeState();
}

std::string BridgeTest::Links() {
  const std::string section = Entry(kPackage, "1", "1ADDSECTION");
  const std::string count = Entry(kPackage, section, "COUNT");
  std::string links = count + ": ";
  for (int i = 1; !count.empty() && i <= std::stoi(count); ++i) {
    links += Entry(kPackage, section, std::to_string(i) + "VALUE") + " ";
  }
  return links;
}

}  // namespace qb
