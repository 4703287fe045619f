#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/PackageCodePage.h"
#include "platform/Platform.h"
#include "platform/linux/HiveRegistry.h"
#include "support/FolderTest.h"

namespace qb {
namespace {

using std::operator""sv;

constexpr std::string_view kHiveFile = R"(\config\registry.ini)";

class HiveRegistryTest : public FolderTest {
 protected:
  std::string Folder() const { return Native(R"(\config)").string(); }

  static std::optional<std::string> Data(Registry& registry, Hive hive, std::string_view key,
                                         std::string_view name) {
    const std::optional<RegistryValue> value = registry.Query(hive, key, name);
    return value ? std::optional(value->data) : std::nullopt;
  }

  HiveRegistry registry_{Folder()};
};

TEST_F(HiveRegistryTest, Query_MissingFileKeyOrValue_GivesNothing) {
  EXPECT_EQ(Data(registry_, Hive::kCurrentUser, "Software", "x"), std::nullopt);
  EXPECT_FALSE(Exists(kHiveFile));
  EXPECT_EQ(registry_.SetText(Hive::kCurrentUser, "Software", "y", "1"), 0);
  EXPECT_EQ(Data(registry_, Hive::kCurrentUser, "Software", "x"), std::nullopt);
  EXPECT_EQ(Data(registry_, Hive::kLocalMachine, "Software", "y"), std::nullopt);
}

TEST_F(HiveRegistryTest, SetText_MakesFolderFileAndKey) {
  EXPECT_EQ(registry_.SetText(Hive::kCurrentUser, kSettingsKey, "UserID", "ORB AG"), 0);
  EXPECT_EQ(Content(kHiveFile),
            "[HKEY_CURRENT_USER\\Software\\ORB\\Quillbank\\Quillbank Translator]\r\nUserID=\"ORB AG\"\r\n");
}

TEST_F(HiveRegistryTest, Query_TextHasItsTerminator_AnEmptyOneHasNothing) {
  registry_.SetText(Hive::kCurrentUser, "K", "full", "abc");
  registry_.SetText(Hive::kCurrentUser, "K", "empty", "");
  EXPECT_EQ(Data(registry_, Hive::kCurrentUser, "K", "full"), "abc\0"sv);
  EXPECT_EQ(Data(registry_, Hive::kCurrentUser, "K", "empty"), "");
  EXPECT_EQ(registry_.Query(Hive::kCurrentUser, "K", "full")->type, 1U);
}

TEST_F(HiveRegistryTest, NamesMatchInAnyCase) {
  registry_.SetText(Hive::kCurrentUser, R"(Software\Größe)", "Übung", "1");
  EXPECT_EQ(Data(registry_, Hive::kCurrentUser, R"(SOFTWARE\gRÖßE)", "üBUNG"), "1\0"sv);
}

TEST_F(HiveRegistryTest, AnyText_ComesBackUnchanged) {
  for (const std::string_view text :
       {" blanks "sv, "\"quoted\""sv, "'single'"sv, "\""sv, "a\r\nb"sv, "\r"sv, "\0x"sv, "%"sv, "%1 %* %%"sv,
        "%0D"sv, "%250D"sv, "100%25"sv, "äöü 表 😀"sv, ";no comment"sv, "[no section]"sv, "a=b"sv, "\t"sv,
        "\x1A"sv}) {
    EXPECT_EQ(registry_.SetText(Hive::kCurrentUser, "K", "value", text), 0);
    HiveRegistry other(Folder());
    EXPECT_EQ(Data(other, Hive::kCurrentUser, "K", "value"), std::string(text) + '\0') << text;
  }
}

TEST_F(HiveRegistryTest, AnyValueName_FindsItsValue) {
  int number = 0;
  const std::string_view names[] = {""sv,    "@"sv,      "a=b"sv, ";c"sv, "[d]"sv,
                                    " e "sv, "f\r\ng"sv, "%40"sv, "h i"sv};
  for (const std::string_view name : names) {
    EXPECT_EQ(registry_.SetText(Hive::kCurrentUser, "K", name, std::to_string(++number)), 0) << name;
  }
  number = 0;
  for (const std::string_view name : names) {
    EXPECT_EQ(Data(registry_, Hive::kCurrentUser, "K", name), std::to_string(++number) + '\0') << name;
  }
}

TEST_F(HiveRegistryTest, DefaultValue_IsCalledAt) {
  registry_.SetText(Hive::kClassesRoot, ".doc", "", "Word.Document");
  EXPECT_EQ(Content(kHiveFile), "[HKEY_CLASSES_ROOT\\.doc]\r\n@=\"Word.Document\"\r\n");
  EXPECT_EQ(registry_.ClassesRootDefault(".DOC"), "Word.Document");
  EXPECT_EQ(registry_.ClassesRootDefault(".ppt"), "");
}

TEST_F(HiveRegistryTest, FileWrittenByHand_IsReadWithoutQuotesToo) {
  Put(kHiveFile, "; my settings\n[HKEY_CURRENT_USER\\K]\nplain = some text \nlater=\"1\"\n");
  EXPECT_EQ(Data(registry_, Hive::kCurrentUser, "K", "plain"), "some text\0"sv);
  EXPECT_EQ(registry_.SetText(Hive::kCurrentUser, "K", "later", "2"), 0);
  EXPECT_EQ(Content(kHiveFile), "; my settings\n[HKEY_CURRENT_USER\\K]\nplain = some text \nlater=\"2\"\n");
}

TEST_F(HiveRegistryTest, ValueOfAnotherObject_ShowsAtOnce) {
  HiveRegistry other(Folder());
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(other.SetText(Hive::kCurrentUser, "K", "v", std::to_string(i)), 0);
    EXPECT_EQ(Data(registry_, Hive::kCurrentUser, "K", "v"), std::to_string(i) + '\0');
  }
}

TEST_F(HiveRegistryTest, SetText_FolderThatCannotBeMade_GivesAnErrorNumber) {
  Put(R"(\config)", "a file stands here");
  EXPECT_NE(registry_.SetText(Hive::kCurrentUser, "K", "v", "1"), 0);
}

TEST_F(HiveRegistryTest, BrowserInTheHive_ComesFirst) {
  registry_.SetText(Hive::kClassesRoot, R"(http\shell\open\command)", "", "/opt/my browser");
  EXPECT_EQ(Data(registry_, Hive::kClassesRoot, R"(HTTP\Shell\Open\Command)", ""), "/opt/my browser\0"sv);
}

TEST_F(HiveRegistryTest, PackageCodePage_FollowsSettingThenLanguage) {
  LinuxTextCodec codec;
  const CodePageChooser chooser = PackageCodePageChooser(registry_, codec);
  const ProfileImage japanese(std::string("[GLOBAL]\r\nDSTLANGUAGE=JA\r\n"));
  EXPECT_EQ(chooser(japanese), 932U);
  EXPECT_EQ(chooser(ProfileImage(std::string("[global]\ndstlanguage = \"ru\"\n"))), 1251U);
  registry_.SetText(Hive::kCurrentUser, kSettingsKey, "AnsiCodePage", "1250");
  EXPECT_EQ(chooser(japanese), 1250U);
  registry_.SetText(Hive::kCurrentUser, kSettingsKey, "AnsiCodePage", "none");
  EXPECT_EQ(chooser(japanese), 932U);
}

}  // namespace
}  // namespace qb
