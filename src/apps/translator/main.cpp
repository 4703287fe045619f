#include <wx/app.h>
#include <wx/log.h>

#include <memory>
#include <string>
#include <utility>

#include "apps/translator/HostOffice.h"
#include "editors/EditorQuestions.h"
#include "editors/gumbo/GumboHtmlParser.h"
#include "foundation/Product.h"
#include "foundation/gRvdError.h"
#include "platform/HostPlatform.h"
#include "runtime/RuntimeError.h"
#include "workflow/TranslateMod.h"
#include "wx/CommandTail.h"
#include "wx/WxText.h"
#include "wx/WxToolkit.h"

namespace {

/// The process in its desktop: brings platform and toolkit to life, then leaves the word to `Main`.
class TranslatorApp : public wxApp {
 public:
  explicit TranslatorApp(std::string commandTail) : commandTail_(std::move(commandTail)) {
    SetAppName("quillbank-translator");
    SetAppDisplayName(qb::ToWx(qb::kProductName));
  }

  bool OnInit() override {
    // Windows come and go while the program runs; it ends where its commands say so.
    SetExitOnFrameDelete(false);
    auto platform = qb::MakeHostPlatform();
    qb::AddWxDesktop(*platform);
    qb::InstallPlatform(std::move(platform));
    qb::InstallHostOffice();
    qb::gEditorQuestions.newHtmlParser = qb::MakeGumboHtmlParser;
    qb::gEditorQuestions.bringsUpTradosTools = true;
    qb::InstallToolkit(std::make_unique<qb::WxToolkit>());
    CallAfter([this] { Run(); });
    return true;
  }

  bool OnExceptionInMainLoop() override {
    // What escapes from an event must not end a program that holds open documents.
    if (!qb::Attempt([] { throw; })) qb::gRvdError("TranslatorApp", "OnExceptionInMainLoop");
    return true;
  }

 private:
  void Run() {
    qb::Main(commandTail_);
    // A start that failed before it could show its window has said so, and leaves nothing to wait for.
    if (qb::ParentForDialogs() == nullptr) qb::TheToolkit().EndProcess();
  }

  std::string commandTail_;
};

}  // namespace

int main(int argc, char** argv) {
#ifdef NDEBUG
  // The toolkit's own checks and chatter are for its developers.
  wxDisableAsserts();
  wxLog::SetLogLevel(wxLOG_Message);
#endif
  wxApp::SetInstance(new TranslatorApp(qb::ProcessCommandTail(argc, argv)));
  // The toolkit sees no argument, since the whole command tail is the program's own.
  int toolkitArgc = 1;
  return wxEntry(toolkitArgc, argv);
}
