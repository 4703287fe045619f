#include <gmock/gmock.h>

#include "support/FakeApplications.h"
#include "support/TestPlatform.h"
#include "ui/DDE.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LinkedTextBoxTest : public PlatformTest {
 protected:
  LinkedTextBoxTest() : dde_(*Install<FakeDde>(ThePlatform().dde)) {
    dde_.SetPartner([](const std::string& item) { return "answer to " + item; });
    Box().LinkTopic = "APP|topic";
  }
  LinkedTextBox& Box() { return form_.DDEResult; }
  long FailureOf(const std::function<void()>& body) { return Attempt(body) ? 0 : Err.Number; }

  FakeDde& dde_;
  DDE form_;
};

TEST_F(LinkedTextBoxTest, Request_PutsTheAnswerIntoTheText) {
  Box().SetLinkMode(LinkedTextBox::kLinkManual);
  Box().LinkItem = "item";
  Box().LinkRequest();
  EXPECT_EQ(Box().Text.Get(), "answer to item");
  EXPECT_THAT(dde_.Log(), ElementsAre("connect APP|topic", "request item"));
}

TEST_F(LinkedTextBoxTest, LinkMode_SetAgain_KeepsTheConversation) {
  Box().SetLinkMode(LinkedTextBox::kLinkManual);
  Box().SetLinkMode(LinkedTextBox::kLinkManual);
  EXPECT_THAT(dde_.Log(), ElementsAre("connect APP|topic"));
}

TEST_F(LinkedTextBoxTest, LinkMode_AfterThePartnerHasGone_IsNoneAndConnectsAnew) {
  Box().SetLinkMode(LinkedTextBox::kLinkManual);
  dde_.SetPartner([](const std::string&) { return "new"; });
  EXPECT_EQ(Box().LinkMode(), LinkedTextBox::kLinkNone);
  Box().SetLinkMode(LinkedTextBox::kLinkManual);
  Box().LinkRequest();
  EXPECT_EQ(Box().Text.Get(), "new");
}

TEST_F(LinkedTextBoxTest, LinkMode_None_EndsTheConversation) {
  Box().SetLinkMode(LinkedTextBox::kLinkManual);
  Box().SetLinkMode(LinkedTextBox::kLinkNone);
  EXPECT_THAT(dde_.Log(), ElementsAre("connect APP|topic", "disconnect"));
  EXPECT_EQ(FailureOf([this] { Box().LinkRequest(); }), failure::kNoDdeChannel);
}

TEST_F(LinkedTextBoxTest, LinkMode_WrongTopicOrMode_Raises) {
  Box().LinkTopic = "APP";
  EXPECT_EQ(FailureOf([this] { Box().SetLinkMode(LinkedTextBox::kLinkManual); }), failure::kInvalidLinkTopic);
  EXPECT_EQ(FailureOf([this] { Box().SetLinkMode(1); }), failure::kInvalidArgument);
  EXPECT_THAT(dde_.Log(), IsEmpty());
}

TEST_F(LinkedTextBoxTest, LinkMode_NobodyAnswers_Raises) {
  dde_.SetPartner(nullptr);
  EXPECT_EQ(FailureOf([this] { Box().SetLinkMode(LinkedTextBox::kLinkManual); }),
            failure::kNoForeignApplication);
  EXPECT_EQ(Box().LinkMode(), LinkedTextBox::kLinkNone);
}

}  // namespace
}  // namespace qb
