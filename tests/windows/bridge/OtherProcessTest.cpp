// A library that runs in a process of its own.

#include <gtest/gtest.h>

#include "editors/com/ComBridge.h"
#include "platform/win32/ComHeaders.h"
#include "windows/bridge/StandInClass.h"

namespace qb {
namespace {

TEST(OtherProcessTest, CallsAndEvents_PassBetweenTheProcesses) {
  RegisterStandInProgram();
  const auto bridge = MakeComBridge();
  ASSERT_NE(bridge, nullptr);
  EXPECT_EQ(bridge->QueryCapability("text/html", 28), 0);
  EXPECT_THROW(bridge->Groups()->Item(std::string(R"(\pkg\dst\text.doc)")), RuntimeError);
  const auto group = AskFor<IBridgeGroup>(bridge->Groups()->Add(R"(\pkg\dst\text.doc)"));
  const auto document = AskFor<IBridgeDocument>(group->Documents()->Open(R"(\pkg\dst\text.doc)", 0));
  EXPECT_EQ(group->Documents()->Count(), 1);
  EXPECT_EQ(document->Application()->TextProperty("Name"), "Microsoft Word");
  document->CustomProperties()->Item(std::string("Title"))->Value(std::string("New"));
  EXPECT_EQ(document->CustomProperties()->Item(std::string("Title"))->Value(),
            TaggedValue(std::string("New")));
  int saved = 0;
  int closed = 0;
  document->OnPostLocalSave = [&] { ++saved; };
  document->OnPostClose = [&] { ++closed; };
  group->Arrange(3);
  EXPECT_EQ(saved, 1) << "during the call";
  bridge->QueryCapability("later", 1);
  MSG message;
  while (saved < 2 && GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  EXPECT_EQ(closed, 0);
  group->Close();
  EXPECT_EQ(closed, 1);
}

}  // namespace
}  // namespace qb
