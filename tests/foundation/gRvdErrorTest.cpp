#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "foundation/CMessageHandler.h"
#include "foundation/FoundationState.h"
#include "foundation/gRvdError.h"
#include "runtime/RuntimeError.h"
#include "support/TestPlatform.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class gRvdErrorTest : public PlatformTest {
 protected:
  void StartMessages() {
    MakeFolder(R"(\pkg)");
    gProtocolDirectory.packageExists = [] { return true; };
    gProtocolDirectory.packageDirectory = [] { return std::string(R"(\pkg)"); };
    gMessageHandler = std::make_unique<CMessageHandler>();
  }

  std::string Protocol() const { return Bytes(R"(\pkg\Protocol.txt)"); }

  static void Fail(long number, std::string description) {
    Err.Set(RuntimeError(number, {}, std::move(description)));
  }
};

TEST_F(gRvdErrorTest, NoPendingError_NothingHappens) {
  StartMessages();
  const std::string before = Protocol();
  gRvdError("CState", "Init");
  EXPECT_TRUE(Boxes().Shown().empty());
  EXPECT_EQ(Protocol(), before);
  EXPECT_FALSE(gInError);
}

TEST_F(gRvdErrorTest, PendingError_GoesToProtocolAsWarningAndToABoxAndIsCleared) {
  StartMessages();
  Err.Set(RuntimeError(91, "somewhere", {}, 12, "x.chm"));
  gRvdError("CState", "ContentEditTransition");
  const std::string line = "CState::ContentEditTransition() #91:Object variable not set";
  EXPECT_TRUE(Protocol().ends_with("#1  Warning         " + line + " \r\n"));
  ASSERT_EQ(Boxes().Shown().size(), 1U);
  const MessageBoxRequest& box = Boxes().Shown()[0];
  EXPECT_EQ(box.text, line);
  EXPECT_EQ(box.style, box::kOkOnly);
  EXPECT_EQ(box.title, std::nullopt);
  EXPECT_EQ(box.helpFile, "x.chm");
  EXPECT_EQ(box.helpContext, 12);
  EXPECT_EQ(gMessageHandler->GetNumberOfErrors(), 0);
  EXPECT_EQ(Err.Number, 0);
  EXPECT_FALSE(gInError);
}

TEST_F(gRvdErrorTest, NoMessageHandler_ReachesTheUserByBoxAlone) {
  Fail(5, "text");
  gRvdError("M", "P");
  EXPECT_THAT(Boxes().Texts(), ElementsAre("M::P() #5:text"));
}

TEST_F(gRvdErrorTest, Severity_Table) {
  const std::vector<std::pair<long, std::string>> table = {{0, " #"},  {-1, " S"}, {-2, " I"}, {-3, " W"},
                                                           {-4, " E"}, {-5, " A"}, {-6, " #"}, {1, " #"}};
  for (const auto& [context, severity] : table) {
    Boxes().Forget();
    Err.Set(RuntimeError(-42, {}, "text", context));
    gRvdError("M", "P");
    EXPECT_THAT(Boxes().Texts(), ElementsAre("M::P()" + severity + "-42:text")) << context;
  }
}

TEST_F(gRvdErrorTest, Names_Table) {
  const std::vector<std::vector<std::string>> table = {{" M ", "P", "M::P() #5:t"},
                                                       {"", "P", "P() #5:t"},
                                                       {"M", "", "M::<internal error> #5:t"},
                                                       {"", "", "<internal error> #5:t"},
                                                       {" ", " P", ":: P() #5:t"}};
  for (const std::vector<std::string>& row : table) {
    Boxes().Forget();
    Fail(5, "t");
    gRvdError(row[0], row[1]);
    EXPECT_THAT(Boxes().Texts(), ElementsAre(row[2]));
  }
}

TEST_F(gRvdErrorTest, ParametersOfTheSameNames_AreNotUsed) {
  Fail(5, "pending");
  gRvdError("M", "P", "other", -1, "other.chm", 7, 6, "source", "extra");
  EXPECT_THAT(Boxes().Texts(), ElementsAre("M::P() #5:pending"));
  EXPECT_EQ(Boxes().Shown()[0].helpFile, "");
}

TEST_F(gRvdErrorTest, FailureWhileTheBoxIsUp_GoesToTheProtocolOnlyAndTheOuterCallClearsTheFlag) {
  StartMessages();
  Boxes().WhileNextNotice([] {
    Fail(6, "inner");
    gRvdError("Timer", "Tick", "more");
    EXPECT_TRUE(gInError);
    EXPECT_EQ(Err.Number, 0);
  });
  Fail(5, "outer");
  gRvdError("M", "P");
  EXPECT_THAT(Boxes().Texts(), ElementsAre("M::P() #5:outer"));
  EXPECT_THAT(Protocol(),
              HasSubstr("#2  Warning         Recursive Error: \r\nTimer::Tick() #6:inner\r\nmore"));
  EXPECT_FALSE(gInError);
}

TEST_F(gRvdErrorTest, FailureWhileTheBoxIsUp_WithoutMessageHandler_ShowsItsOwnBox) {
  Boxes().WhileNextNotice([] {
    Err.Set(RuntimeError(6, {}, "inner", 3, "y.chm"));
    gRvdError("Timer", "Tick");
  });
  Fail(5, "outer");
  gRvdError("M", "P");
  ASSERT_THAT(Boxes().Texts(),
              ElementsAre("M::P() #5:outer", "Recursive Error: \r\nTimer::Tick() #6:inner\r\n"));
  EXPECT_EQ(Boxes().Shown()[1].helpFile, "y.chm");
  EXPECT_EQ(Boxes().Shown()[1].helpContext, 3);
}

TEST_F(gRvdErrorTest, FailingBox_IsIgnored) {
  Boxes().WhileNextNotice([] { throw RuntimeError(7); });
  Fail(5, "text");
  EXPECT_NO_THROW(gRvdError("M", "P"));
  EXPECT_FALSE(gInError);
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(gRvdErrorTest, ResetFoundationState_ClearsTheFlag) {
  gInError = true;
  ResetFoundationState();
  EXPECT_FALSE(gInError);
}

}  // namespace
}  // namespace qb
