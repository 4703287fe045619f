#include <gtest/gtest.h>

#include "MockPlatform.h"
#include "foundation/grvdRegistry.h"
#include "support/TestPlatform.h"

namespace qb {
namespace {

using ::testing::_;
using ::testing::NiceMock;
using ::testing::Return;

class grvdRegistryTest : public PlatformTest {
 protected:
  static std::string Get(std::string_view valueName) {
    return GetRegistryString(Hive::kCurrentUser, R"(Software\Test)", valueName, "default");
  }
  static long Set(std::string_view valueName, std::string_view value) {
    return SetRegistryString(Hive::kCurrentUser, R"(Software\Test)", valueName, value);
  }
};

TEST_F(grvdRegistryTest, Get_MissingKey_IsDefault) {
  EXPECT_EQ(Get("Name"), "default");
}

TEST_F(grvdRegistryTest, Get_MissingValue_IsDefault) {
  EXPECT_EQ(Set("Other", "x"), 0);
  EXPECT_EQ(Get("Name"), "default");
}

TEST_F(grvdRegistryTest, Get_StoredText_ComesBack) {
  EXPECT_EQ(Set("Name", R"( "C:\Program Files\x.exe" %1 )"), 0);
  EXPECT_EQ(Get("Name"), R"( "C:\Program Files\x.exe" %1 )");
}

TEST_F(grvdRegistryTest, Get_EmptyText_IsEmptyAndNotDefault) {
  EXPECT_EQ(Set("Name", ""), 0);
  EXPECT_EQ(Get("Name"), "");
}

TEST_F(grvdRegistryTest, Get_ValueOf255BytesWithTerminator_ComesBackLongerIsDefault) {
  Set("Name", std::string(254, 'x'));
  EXPECT_EQ(Get("Name"), std::string(254, 'x'));
  Set("Name", std::string(255, 'x'));
  EXPECT_EQ(Get("Name"), "default");
}

TEST_F(grvdRegistryTest, Get_OtherType_IsItsBytesLessOne) {
  auto& registry = Replace<NiceMock<MockRegistry>>(ThePlatform().registry);
  ON_CALL(registry, Query(_, _, _)).WillByDefault(Return(RegistryValue{4, std::string("abc\0", 4)}));
  EXPECT_EQ(Get("Name"), "abc");
}

TEST_F(grvdRegistryTest, Set_Refused_GivesTheSystemsError) {
  auto& registry = Replace<NiceMock<MockRegistry>>(ThePlatform().registry);
  ON_CALL(registry, SetText(_, _, _, _)).WillByDefault(Return(5));
  EXPECT_EQ(Set("Name", "x"), 5);
}

}  // namespace
}  // namespace qb
