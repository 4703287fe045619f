#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Registry.h"
#include "platform/win32/Win32Text.h"

namespace qb {
namespace {

using std::operator""s;

/// A key of the user's own that goes with the test.
class Win32RegistryTest : public ::testing::Test {
 protected:
  ~Win32RegistryTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, Wide(folder_).c_str()); }

  const std::string folder_ = R"(Software\ORB\Test )" + std::to_string(GetCurrentProcessId());
  const std::string key_ = R"(Software\ORB\Quillbank)";
  Win32Registry registry_{folder_};
};

TEST_F(Win32RegistryTest, Query_MissingKeyOrValue_GivesNothing) {
  EXPECT_FALSE(registry_.Query(Hive::kCurrentUser, key_, "V").has_value());
  EXPECT_EQ(registry_.SetText(Hive::kCurrentUser, key_, "V", "x"), 0);
  EXPECT_FALSE(registry_.Query(Hive::kCurrentUser, key_, "W").has_value());
  EXPECT_FALSE(registry_.Query(Hive::kCurrentUser, key_, "").has_value());
}

TEST_F(Win32RegistryTest, Query_TextHasItsTerminator_AnEmptyOneHasNothing) {
  registry_.SetText(Hive::kCurrentUser, key_, "V", "x y");
  registry_.SetText(Hive::kCurrentUser, key_, "Empty", "");
  EXPECT_EQ(registry_.Query(Hive::kCurrentUser, key_, "V")->data, "x y\0"s);
  EXPECT_EQ(registry_.Query(Hive::kCurrentUser, key_, "V")->type, 1U);
  EXPECT_EQ(registry_.Query(Hive::kCurrentUser, key_, "Empty")->data, "");
}

TEST_F(Win32RegistryTest, Query_OtherTypes_GiveTheirBytes) {
  registry_.SetText(Hive::kCurrentUser, key_, "V", "x");
  const DWORD number = 0x04030201;
  ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, Wide(folder_ + R"(\HKEY_CURRENT_USER\)" + key_).c_str(), L"N",
                            REG_DWORD, &number, sizeof number),
            ERROR_SUCCESS);
  EXPECT_EQ(registry_.Query(Hive::kCurrentUser, key_, "N")->type, 4U);
  EXPECT_EQ(registry_.Query(Hive::kCurrentUser, key_, "N")->data, "\1\2\3\4");
}

TEST_F(Win32RegistryTest, AnyText_ComesBackUnchanged) {
  for (const std::string& text :
       {"\"quoted\""s, " blanks "s, "Größe 表 😀"s, std::string(5000, 'x'), "a\r\nb"s}) {
    EXPECT_EQ(registry_.SetText(Hive::kCurrentUser, key_, "Straße", text), 0);
    EXPECT_EQ(registry_.Query(Hive::kCurrentUser, key_, "STRAßE")->data, text + '\0');
  }
}

TEST_F(Win32RegistryTest, DefaultValueOfAClass_IsRead) {
  registry_.SetText(Hive::kClassesRoot, R"(http\shell\open\command)", "", R"("C:\b.exe" "%1")");
  EXPECT_EQ(registry_.Query(Hive::kClassesRoot, R"(http\shell\open\command)", "")->data,
            R"("C:\b.exe" "%1")"s + '\0');
  EXPECT_FALSE(registry_.Query(Hive::kCurrentUser, R"(http\shell\open\command)", "").has_value());
}

TEST_F(Win32RegistryTest, WithoutAFolder_TheHivesAreTheSystems) {
  Win32Registry system;
  EXPECT_EQ(system.SetText(Hive::kCurrentUser, folder_, "V", "x"), 0);
  EXPECT_EQ(system.Query(Hive::kCurrentUser, folder_, "V")->data, "x\0"s);
  EXPECT_TRUE(
      system.Query(Hive::kLocalMachine, R"(Software\Microsoft\Windows NT\CurrentVersion)", "SystemRoot"));
  EXPECT_EQ(system.SetText(Hive::kClassesRoot, ".qbtregistry", "", "type"), 0);
  EXPECT_EQ(system.Query(Hive::kClassesRoot, ".qbtregistry", "")->data, "type\0"s);
  RegDeleteTreeW(HKEY_CLASSES_ROOT, L".qbtregistry");
}

TEST_F(Win32RegistryTest, SetText_KeyThatCannotBeMade_GivesAnErrorNumber) {
  EXPECT_NE(registry_.SetText(Hive::kCurrentUser, std::string(300, 'x'), "V", "x"), 0);
}

}  // namespace
}  // namespace qb
