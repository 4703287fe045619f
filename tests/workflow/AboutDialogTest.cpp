#include <gmock/gmock.h>

#include <map>

#include "runtime/RuntimeError.h"
#include "support/WorkflowTest.h"
#include "workflow/AboutDialog.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace std::string_literals;

constexpr std::string_view kToolKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
constexpr std::string_view kPlaceKey = R"(SOFTWARE\Microsoft\Shared Tools Location)";
constexpr const char* kUnavailable = "System Information Is Unavailable At This Time";

/// A registry of values of any type.
class FakeRegistry : public Registry {
 public:
  std::optional<RegistryValue> Query(Hive, std::string_view key, std::string_view valueName) override {
    const auto found = values.find(std::string(key) + "|" + std::string(valueName));
    if (found == values.end()) return std::nullopt;
    return found->second;
  }
  long SetText(Hive, std::string_view, std::string_view, std::string_view) override { return 5; }

  std::map<std::string, RegistryValue> values;
};

class AboutDialogTest : public WorkflowTest {
 protected:
  AboutDialogTest() {
    Start();
    Kit().calls.clear();
  }

  void Open(std::function<void(frmAbout&)> play) {
    Kit().WhileNextModal([play = std::move(play)](Form& form) { play(dynamic_cast<frmAbout&>(form)); });
    Window().mniAbout.Click();
  }

  void SetMachineValue(std::string_view key, std::string_view name, std::string_view text) {
    ThePlatform().registry->SetText(Hive::kLocalMachine, key, name, text);
  }
};

TEST_F(AboutDialogTest, MenuEntry_OpensANewInstanceAndOkClosesIt) {
  const std::size_t loaded = TheForms().Loaded().size();
  Open([](frmAbout& form) {
    EXPECT_EQ(form.Caption.Get(), "About ORB Quillbank Translator");
    EXPECT_EQ(form.lblTitle.Caption.Get(), "ORB Quillbank Translator");
    EXPECT_EQ(form.lblRelease.Caption.Get(), "Version 7.1.3");
    EXPECT_EQ(form.Label2.Caption.Get(), "Translator");
    EXPECT_EQ(form.lblDescription.Caption.Get(), "Making your translation handling easier");
    form.cmdOK.Click();
    EXPECT_FALSE(form.Visible);
  });
  EXPECT_THAT(Kit().calls, ElementsAre("show modal frmAbout", "unload frmAbout"));
  EXPECT_EQ(TheForms().Loaded().size(), loaded);
}

TEST_F(AboutDialogTest, FailureOfTheOpening_IsIgnored) {
  Kit().WhileNextModal([](Form&) { throw RuntimeError(failure::kOutOfMemory); });
  Window().mniAbout.Click();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(AboutDialogTest, LogoDragged_RunsTheShowIfNothingOrBothCameOfIt) {
  for (const int effect : {0, 1, 2, 3}) {
    Window().sbcStatusBar.SimpleText = std::string("before");
    Open([effect](frmAbout& form) { form.imgLogo.DragEnded(effect); });
    const bool shown = effect == 0 || effect == 3;
    EXPECT_EQ(Window().sbcStatusBar.SimpleText.Get(), shown ? "A product by ORB AG" : "before") << effect;
  }
}

TEST_F(AboutDialogTest, SystemInfo_NoToolNamed_IsUnavailable) {
  Open([](frmAbout& form) { form.cmdSysInfo.Click(); });
  ASSERT_EQ(Boxes().Shown().size(), 1U);
  EXPECT_EQ(Boxes().Shown()[0].text, kUnavailable);
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
  EXPECT_THAT(TheShell().started, IsEmpty());
}

TEST_F(AboutDialogTest, SystemInfo_ToolNamedInTheRegistry_IsStarted) {
  SetMachineValue(kToolKey, "PATH", R"(\usr\bin\hardinfo)");
  StartSysInfo();
  EXPECT_THAT(TheShell().started, ElementsAre(R"(\usr\bin\hardinfo)"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(AboutDialogTest, SystemInfo_FolderNamed_TakesTheToolInItIfThereIsOne) {
  SetMachineValue(kPlaceKey, "MSINFO", R"(\tools)");
  StartSysInfo();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kUnavailable));
  Boxes().Forget();
  Write(R"(\tools\MSINFO32.EXE)", "x");
  StartSysInfo();
  EXPECT_THAT(TheShell().started, ElementsAre(R"(\tools\MSINFO32.EXE)"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(AboutDialogTest, SystemInfo_ToolThatCannotBeStarted_IsUnavailable) {
  SetMachineValue(kToolKey, "PATH", R"(\no\tool)");
  TheShell().startFailure = RuntimeError(failure::kFileNotFound);
  StartSysInfo();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kUnavailable));
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(AboutDialogTest, SystemInfo_ToolWithoutAProcess_IsUnavailable) {
  SetMachineValue(kToolKey, "PATH", R"(\usr\bin\hardinfo)");
  TheShell().startResult = 0;
  StartSysInfo();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kUnavailable));
}

TEST_F(AboutDialogTest, GetKeyValue_ByTypeOfTheValue) {
  auto registry = std::make_unique<FakeRegistry>();
  registry->values = {{"k|text", {1, "abc\0"s}},
                      {"k|no end", {1, "abc"s}},
                      {"k|empty", {1, ""s}},
                      {"k|number", {4, "\x78\x56\x34\x12"s}},
                      {"k|fits", {1, std::string(1023, 'x') + '\0'}},
                      {"k|too long", {1, std::string(1024, 'x') + '\0'}}};
  std::unique_ptr<Registry> own = std::move(registry);
  std::swap(ThePlatform().registry, own);
  const auto read = [](std::string_view name) {
    std::string value = "before";
    return GetKeyValue(Hive::kLocalMachine, "k", name, value) ? value : "none:" + value;
  };
  EXPECT_EQ(read("text"), "abc");
  EXPECT_EQ(read("no end"), "abc");
  EXPECT_EQ(read("empty"), "");
  EXPECT_EQ(read("number"), "&h12345678");
  EXPECT_EQ(read("fits"), std::string(1023, 'x'));
  EXPECT_EQ(read("too long"), "none:");
  EXPECT_EQ(read("missing"), "none:");
  std::swap(ThePlatform().registry, own);
}

}  // namespace
}  // namespace qb
