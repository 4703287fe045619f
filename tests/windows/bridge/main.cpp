// Tests that run the office behind the Document Bridge of Windows: everything that a scripted office says and
// does passes through the registry, the type library and automation objects of a stand-in.

#include <gmock/gmock.h>

#include <string_view>

#include "editors/com/ComBridge.h"
#include "support/ScriptedBridge.h"
#include "windows/bridge/StandInClass.h"
#include "windows/bridge/StandInObject.h"

namespace {

using qb::theStandIn;

/// After each test: no member was called that the program must not know, and no object is left.
class StandInJudge : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override {
    theStandIn = {};
    qb::RegisterStandIn(qb::StandInFile(L"StandInBridge.dll"), qb::StandInFile(L"StandInBridge.dll"));
  }
  void OnTestEnd(const testing::TestInfo&) override {
    for (const std::string& stray : theStandIn.strays)
      ADD_FAILURE() << "a member at no used position was called: " << stray;
    EXPECT_EQ(theStandIn.objects, 0) << "objects of the library are left";
    qb::UnregisterStandIn();
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::string_view(argv[1]) == "--serve") return qb::RunStandInProgram();
  testing::InitGoogleMock(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new StandInJudge);
  qb::ScriptedBridge::between = [](std::function<std::shared_ptr<qb::IBridge>()> office) {
    theStandIn.newOffice = std::move(office);
    return qb::MakeComBridge;
  };
  return RUN_ALL_TESTS();
}
