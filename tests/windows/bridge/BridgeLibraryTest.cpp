// How the library is found, and what becomes of one that is not of use.

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "editors/EditorQuestions.h"
#include "editors/com/ComBridge.h"
#include "runtime/RuntimeError.h"
#include "support/ScriptedBridge.h"
#include "windows/bridge/StandInClass.h"

namespace qb {
namespace {

using ::testing::HasSubstr;

class BridgeLibraryTest : public ::testing::Test {
 protected:
  void SetUp() override { ScriptedBridge::Install(); }
  void TearDown() override {
    gEditorQuestions.newDocumentBridge = nullptr;
    Err.Clear();
    std::filesystem::remove(file_);
  }

  /// What is said when a bridge cannot be made.
  std::string Refusal() {
    EXPECT_FALSE(Attempt([] { MakeComBridge(); }));
    return Err.Description;
  }

  /// Puts these bytes where the type library is registered.
  void RegisterBytes(const std::string& bytes) {
    std::ofstream(file_, std::ios::binary) << bytes;
    RegisterStandIn(file_.wstring(), StandInFile(L"StandInBridge.dll"));
  }

  static std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  const std::filesystem::path file_ = std::filesystem::temp_directory_path() / L"quillbank damaged.tlb";
};

TEST_F(BridgeLibraryTest, NotRegistered_GivesNothing) {
  UnregisterStandIn();
  EXPECT_EQ(MakeComBridge(), nullptr);
}

TEST_F(BridgeLibraryTest, SeveralVersions_TheHighestCounts) {
  RegisterTypeLibrary(L"1.1", L"win64", L"C:\\gone.dll");
  RegisterTypeLibrary(L"9.9", L"win64", L"C:\\gone.dll");
  RegisterTypeLibrary(L"a.0", L"win32", StandInFile(L"StandInBridge.dll"));
  RegisterTypeLibrary(L"nonsense", L"win64", L"C:\\gone.dll");
  EXPECT_NE(MakeComBridge(), nullptr);
  RegisterTypeLibrary(L"a.1", L"win64", L"C:\\gone.dll");
  EXPECT_THAT(Refusal(), HasSubstr("C:\\gone.dll"));
}

TEST_F(BridgeLibraryTest, TypeLibraryInAFileOfItsOwn_IsAsGood) {
  RegisterStandIn(StandInFile(L"StandInBridge.tlb"), StandInFile(L"StandInBridge.dll"));
  EXPECT_NE(MakeComBridge(), nullptr);
}

TEST_F(BridgeLibraryTest, LibraryHasGone_IsRefused) {
  RegisterStandIn(StandInFile(L"StandInBridge.tlb"), L"C:\\gone.dll");
  EXPECT_THAT(Refusal(), HasSubstr("Document Bridge"));
}

TEST_F(BridgeLibraryTest, LibraryWithoutTheClass_IsRefused) {
  RegisterStandIn(StandInFile(L"StandInBridge.tlb"), L"oleaut32.dll");
  EXPECT_THAT(Refusal(), HasSubstr("Document Bridge"));
}

TEST_F(BridgeLibraryTest, TypeLibraryIsNone_IsRefusedByName) {
  for (const std::string& bytes :
       {std::string(), std::string("no type library"), std::string(100'000, '\xFF')}) {
    RegisterBytes(bytes);
    EXPECT_THAT(Refusal(), HasSubstr("quillbank damaged.tlb"));
  }
}

/// A type library whose members stand at other positions than the program's.
class UnusableLibraryTest : public BridgeLibraryTest, public ::testing::WithParamInterface<const wchar_t*> {};

TEST_P(UnusableLibraryTest, OtherMembersThanExpected_IsRefused) {
  RegisterStandIn(StandInFile(GetParam()), StandInFile(L"StandInBridge.dll"));
  EXPECT_THAT(Refusal(), HasSubstr("cannot be used"));
}

INSTANTIATE_TEST_SUITE_P(Libraries, UnusableLibraryTest,
                         ::testing::Values(L"NoClass.tlb", L"TwoClasses.tlb", L"TooShort.tlb",
                                           L"TooFewEvents.tlb", L"OtherParameters.tlb"));

}  // namespace
}  // namespace qb
