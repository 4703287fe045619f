#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "platform/HostPlatform.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Clipboard.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32Environment.h"
#include "platform/win32/Win32FileDialogs.h"
#include "platform/win32/Win32TextCodec.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

TEST(Win32Environment, Variable_IsThatOfTheProcess) {
  ASSERT_NE(SetEnvironmentVariableW(L"QB_TEST", L"Gr\u00F6\u00DFe"), FALSE);
  EXPECT_EQ(Win32Environment().Variable("QB_TEST"), "Größe");
  EXPECT_EQ(Win32Environment().Variable("QB_NO_SUCH_VARIABLE"), "");
  EXPECT_NE(Win32Environment().Variable("COMPUTERNAME"), "");
}

TEST(Win32Debugger, Stop_WithoutADebugger_DoesNothing) {
  Win32Debugger().Stop();
}

TEST(Win32Clock, Times_AreSplitInUtcAndInLocalTime) {
  Win32Clock clock;
  const FileTime moment{1053181329, 0};
  EXPECT_EQ(clock.UtcTime(moment), (DateTime{2003, 5, 17, 14, 22, 9}));
  // The zone is the machine's: the two differ by whole quarters of an hour, less than a day.
  const DateTime local = clock.LocalTime(moment);
  EXPECT_EQ(local.second, 9);
  EXPECT_EQ(local.minute % 15, 22 % 15);
  EXPECT_EQ(local.year, 2003);
}

TEST(Win32Clock, Now_IsTheTimeOfTheSystem) {
  Win32Clock clock;
  const DateTime before = clock.LocalNow();
  const double seconds = clock.SecondsSinceMidnight();
  const DateTime after = clock.LocalNow();
  if (before.day != after.day) GTEST_SKIP() << "midnight passed";
  EXPECT_GE(seconds, before.hour * 3600 + before.minute * 60 + before.second);
  EXPECT_LT(seconds, after.hour * 3600 + after.minute * 60 + after.second + 1);
}

TEST(Win32TextCodec, SystemCodePage_IsTheSystems) {
  EXPECT_EQ(Win32TextCodec().SystemCodePage(), GetACP());
}

TEST(Win32TextCodec, CodePageOfAnUnknownLanguage_IsTheSystems) {
  if (GetACP() == kUtf8) GTEST_SKIP() << "the system works in UTF-8";
  EXPECT_EQ(Win32TextCodec().CodePageOfLanguage(""), GetACP());
  EXPECT_EQ(Win32TextCodec().CodePageOfLanguage("??"), GetACP());
}

TEST(Win32Clipboard, SetText_ReplacesWhatWasThere) {
  Win32Clipboard clipboard;
  clipboard.SetText("before", Clipboard::kTextFormat);
  clipboard.SetText(
      "Gr\xC3\xB6\xC3\x9F"
      "e",
      Clipboard::kTextFormat);
  if (OpenClipboard(nullptr) == FALSE) GTEST_SKIP() << "there is no clipboard without a desktop";
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  const std::wstring text = memory != nullptr ? static_cast<const wchar_t*>(GlobalLock(memory)) : L"";
  CloseClipboard();
  EXPECT_EQ(text, L"Gr\u00F6\u00DFe");
}

TEST(Win32FileDialogs, Cancelled_IsNoFailure) {
  RaiseDialogFailure(0);
}

TEST(Win32FileDialogs, FailedDialog_RaisesWhatItsCodeMeans) {
  const auto raised = [](std::uint32_t code) {
    try {
      RaiseDialogFailure(code);
    } catch (const RuntimeError& error) {
      return std::to_string(error.Number()) + ": " + error.Description();
    }
    return std::string("nothing");
  };
  EXPECT_EQ(raised(FNERR_BUFFERTOOSMALL), "5: These files are too many to be taken together");
  EXPECT_EQ(raised(FNERR_INVALIDFILENAME), "75: The name of the file is not valid");
  EXPECT_EQ(raised(CDERR_MEMALLOCFAILURE), "7: Out of memory");
  EXPECT_EQ(raised(CDERR_DIALOGFAILURE), "5: The file dialog failed with the code 0xffff");
}

TEST(Win32Platform, Make_BringsAllButTheToolkitsParts) {
  const std::unique_ptr<Platform> platform = MakeHostPlatform({"C:\\", "C:\\test"});
  EXPECT_NE(platform->files, nullptr);
  EXPECT_NE(platform->codec, nullptr);
  EXPECT_NE(platform->registry, nullptr);
  EXPECT_NE(platform->profiles, nullptr);
  EXPECT_NE(platform->shell, nullptr);
  EXPECT_NE(platform->fileDialogs, nullptr);
  EXPECT_NE(platform->clipboard, nullptr);
  EXPECT_NE(platform->clock, nullptr);
  EXPECT_NE(platform->environment, nullptr);
  EXPECT_NE(platform->debugger, nullptr);
  EXPECT_EQ(platform->messageBoxes, nullptr);
  EXPECT_EQ(platform->mousePointer, nullptr);
}

TEST(Win32Platform, Parts_OutliveTheReplacementOfOthers) {
  const std::unique_ptr<Platform> platform = MakeHostPlatform({"C:\\", "C:\\test"});
  platform->files.reset();
  platform->registry.reset();
  platform->codec.reset();
  EXPECT_EQ(platform->profiles->GetPrivateProfileString("A", "K", "-", 10, R"(\no\such.pxf)"), "-");
}

}  // namespace
}  // namespace qb
