#include <fmt/format.h>
#include <wx/app.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "foundation/Product.h"
#include "platform/HostPlatform.h"
#include "ui/Forms.h"
#include "ui/frmAbout.h"
#include "ui/frmAttributeTranslation.h"
#include "ui/frmFileCheckinDialog.h"
#include "ui/frmOptions.h"
#include "ui/frmSplash.h"
#include "ui/frmTranslateTitle.h"
#include "workflow/EventTable.h"
#include "workflow/TranslateMod.h"
#include "wx/WxText.h"
#include "wx/WxToolkit.h"

// Shows one form by itself, with its wording and its events, and says what it holds when it goes. For the
// forms that only pass by, or that no command shows: for pictures and for tests of the real window. Usage:
// form_demo <form> <language> <folder of the language files>
namespace {

using qb::Default;

void ShowTitle() {
  auto& form = Default<qb::frmTranslateTitle>();
  form.ctlTitleOrig.Text = std::string("Inbetriebnahme und Wartung der Anlage AQ 40");
  form.ctlTitleTrans.Text = std::string("Commissioning and maintenance of the AQ 40 system");
  form.ctlTitleTrans.SelLength = static_cast<int>(form.ctlTitleTrans.Text.Get().size());
  qb::TheToolkit().ShowModal(form);
}

void ShowAttributes() {
  auto& form = Default<qb::frmAttributeTranslation>();
  for (const char* name : {"KEYWORDS", "SUBJECT", "SUMMARY"}) form.ctlProperties.AddItem(name);
  form.ctlProperties.ListIndex = 1;
  form.AttributeName.Text = std::string("SUBJECT");
  form.SourceValue.Text = std::string("Inbetriebnahme");
  form.PreviousTranslation.Text = std::string("Start-up");
  qb::TheToolkit().ShowModal(form);
  fmt::print("{}\n", form.TargetValue.Text.Get());
}

void ShowOptions() {
  auto& form = Default<qb::frmOptions>();
  form.edtUserID.Text = std::string("ORB AG");
  form.edtTimerInterval.Text = std::string("5000");
  qb::TheToolkit().ShowModal(form);
}

void ShowAbout() {
  qb::TheToolkit().ShowModal(Default<qb::frmAbout>());
}

/// These two are not modal: they stay until the demonstration is ended from outside.
void ShowCheckin() {
  auto& form = Default<qb::frmFileCheckinDialog>();
  form.ctlCurrentFile.Text = std::string(R"(\home\translator\package\dst\inbetriebnahme\inbetriebnahme.doc)");
  form.ctlProgressBar.Value = 60;
  qb::TheToolkit().Show(form);
}

void ShowSplash() {
  auto& form = Default<qb::frmSplash>();
  form.tmrSplash.Enabled = false;
  form.lblVersion.Caption = "Version " + qb::ProductVersion();
  qb::TheToolkit().Show(form);
}

class FormDemo : public wxApp {
 public:
  bool OnInit() override {
    static const std::map<std::string, std::function<void()>> kForms{
        {"title", ShowTitle}, {"attributes", ShowAttributes}, {"options", ShowOptions},
        {"about", ShowAbout}, {"checkin", ShowCheckin},       {"splash", ShowSplash}};
    const auto form = argc == 4 ? kForms.find(qb::FromWx(argv[1])) : kForms.end();
    if (form == kForms.end()) {
      fmt::print(stderr,
                 "Usage: form_demo title|attributes|options|about|checkin|splash <language> <folder>\n");
      return false;
    }
    SetExitOnFrameDelete(false);
    auto platform = qb::MakeHostPlatform();
    qb::AddWxDesktop(*platform);
    qb::InstallPlatform(std::move(platform));
    qb::InstallToolkit(std::make_unique<qb::WxToolkit>());
    qb::TheForms().Binder = qb::BindEvents;
    qb::gInterfaceLanguage = qb::FromWx(argv[2]);
    qb::gInstallationPath = qb::KeptPath(qb::FromWx(argv[3]));
    CallAfter([show = form->second, stays = form->first == "checkin" || form->first == "splash"] {
      qb::QBL_InitLanguage(qb::gInstallationPath, "QuillbankTranslator", qb::ProductVersion(),
                           qb::gInterfaceLanguage);
      show();
      if (!stays) qb::TheToolkit().EndProcess();
    });
    return true;
  }
};

}  // namespace

wxIMPLEMENT_APP(FormDemo);
