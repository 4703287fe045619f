#include <fmt/format.h>
#include <wx/app.h>
#include <wx/init.h>

#include <chrono>
#include <cstdlib>
#include <string>

#include "platform/Platform.h"
#include "ui/Forms.h"
#include "ui/frmContextMenu.h"
#include "ui/frmQBTranslator.h"
#include "wx/WxToolkit.h"

// Fills the forms with invented data and shows them: for a look at the window, and to measure how long a load
// of many documents takes to come on screen. DEMO_DOCUMENTS says how many; with DEMO_EXIT it ends by itself.
namespace {

using qb::frmQBTranslator;

using Milliseconds = std::chrono::duration<double, std::milli>;
using Now = std::chrono::steady_clock;

void BindLayout(frmQBTranslator& form) {
  form.Resize = [&form] {
    const qb::Bounds tools = form.Toolbar.Place;
    const qb::Bounds status = form.sbcStatusBar.Place;
    form.TransPackTree.Place = qb::Bounds{0, tools.height, form.Place.width - 100,
                                          form.Place.height - tools.height - status.height - 660};
    form.TransPackTree.Visible = true;
  };
}

void Fill(frmQBTranslator& form, int documents, int files) {
  qb::TableTree& tree = form.TransPackTree;
  tree.TreeColumnWidth = "300";
  for (const char* column : {"TechName", "Title"}) {
    tree.AddColumn(column);
    tree.SetColumnWidth(column, "300");
  }
  qb::TreeNode& root =
      tree.AddEx(nullptr, qb::TableTree::kNewRoot, "@ROOT", R"(\home\translator\Trans.pxf)", 11, 11, 0);
  root.SetTitle("Reference manual, 4th edition");
  root.EnsureVisible();
  const int states[] = {0, 1, 2, 11, 9, 8};
  for (int i = 0; i < documents; ++i) {
    const std::string key = fmt::format("GUID{:06}", i);
    const int state = states[i % 6];
    qb::TreeNode& document = tree.AddEx(&root, qb::TableTree::kChild, key,
                                        fmt::format("Chapter {}: Öffnen und Schließen", i), state, state, -1);
    document.SetTitle(fmt::format("CHAPTER_{:05}", i));
    for (int j = 0; j < files; ++j) {
      const std::string name = fmt::format("file{}.doc", j);
      tree.AddEx(&document, qb::TableTree::kChild, key + "_" + name, name, j == 0 ? 10 : 12, j == 0 ? 10 : 12,
                 -1);
    }
    qb::ListRow& row = form.lvInfoObjectList.Add(key, document.Title(), state);
    row.SetSubItems(1, "Released");
    row.SetSubItems(2, "UNCHANGED");
  }
  root.SetExpanded(true);
}

void ReportWhenPainted(Now::time_point start) {
  wxTheApp->CallAfter([start] {
    qb::TheToolkit().ProcessPendingEvents();
    fmt::print("{:.0f} ms to the next turn\n", Milliseconds(Now::now() - start).count());
    std::fflush(stdout);
    if (std::getenv("DEMO_EXIT") != nullptr) qb::TheToolkit().EndProcess();
  });
}

class DemoApp : public wxApp {
 public:
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    auto platform = std::make_unique<qb::Platform>();
    qb::AddWxDesktop(*platform);
    qb::InstallPlatform(std::move(platform));
    qb::InstallToolkit(std::make_unique<qb::WxToolkit>());
    CallAfter([] { Run(); });
    return true;
  }

 private:
  static void Run() {
    auto& form = qb::Default<frmQBTranslator>();
    BindLayout(form);
    form.QueryUnload = [](int) {
      qb::TheToolkit().EndProcess();
      return true;
    };
    form.TransPackTree.DblClick = [&form] { form.sbcStatusBar.SimpleText = "double click"; };
    form.TransPackTree.KeyPress = [&form](int code) {
      form.sbcStatusBar.SimpleText = fmt::format("key {}", code);
    };
    form.TransPackTree.MouseUp = [](int) {
      qb::TheToolkit().PopupMenu(qb::Default<qb::frmContextMenu>().mnuContextMenu);
    };
    form.mniTrace.Checked = true;
    form.mniShortView.Checked = true;
    qb::TheToolkit().Show(form);
    qb::TheToolkit().ProcessPendingEvents();
    const auto start = Now::now();
    Fill(form, Documents(), 4);
    fmt::print("{} documents: {:.0f} ms to fill\n", Documents(), Milliseconds(Now::now() - start).count());
    qb::TheToolkit().SetFocus(form.TransPackTree);
    fmt::print("{:.0f} ms applied\n", Milliseconds(Now::now() - start).count());
    ReportWhenPainted(start);
  }

  static int Documents() {
    const char* count = std::getenv("DEMO_DOCUMENTS");
    return count != nullptr ? std::atoi(count) : 12;
  }
};

}  // namespace

wxIMPLEMENT_APP(DemoApp);
