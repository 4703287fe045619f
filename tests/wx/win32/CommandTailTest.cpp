#include <gtest/gtest.h>

#include <filesystem>

#include "wx/CommandTail.h"

namespace qb {
namespace {

std::string InCurrentFolder(const std::string& name) {
  return (std::filesystem::current_path() / name).string();
}

TEST(CommandTailTest, CommandTail_ProgramOnly_IsEmpty) {
  EXPECT_EQ(CommandTail(L""), "");
  EXPECT_EQ(CommandTail(L"translator.exe"), "");
  EXPECT_EQ(CommandTail(L"\"C:\\Program Files\\translator.exe\"  "), "");
}

TEST(CommandTailTest, CommandTail_AbsolutePath_StandsAsItWasTyped) {
  EXPECT_EQ(CommandTail(L"translator.exe C:\\pkg\\Trans.pxf"), R"(C:\pkg\Trans.pxf)");
  EXPECT_EQ(CommandTail(L"\"C:\\my programs\\translator.exe\"   C:\\Träns.pxf"), R"(C:\Träns.pxf)");
  EXPECT_EQ(CommandTail(L"translator.exe \\\\server\\share\\Trans.pxf"), R"(\\server\share\Trans.pxf)");
}

TEST(CommandTailTest, CommandTail_RelativePath_BecomesAbsolute) {
  EXPECT_EQ(CommandTail(L"translator.exe pkg\\Trans.pxf"), InCurrentFolder(R"(pkg\Trans.pxf)"));
}

TEST(CommandTailTest, CommandTail_StepsUp_AreTaken) {
  EXPECT_EQ(CommandTail(L"translator.exe a\\..\\Trans.pxf"), InCurrentFolder("Trans.pxf"));
}

TEST(CommandTailTest, CommandTail_Blanks_BelongToTheOnePath) {
  EXPECT_EQ(CommandTail(L"translator.exe C:\\my package\\Trans.pxf"), R"(C:\my package\Trans.pxf)");
}

TEST(CommandTailTest, CommandTail_Quotes_Stay) {
  EXPECT_EQ(CommandTail(L"translator.exe \"C:\\a.pxf\""), R"("C:\a.pxf")");
}

TEST(CommandTailTest, CommandTail_WhatLooksLikeAnOption_IsAPath) {
  EXPECT_EQ(CommandTail(L"translator.exe --help"), InCurrentFolder("--help"));
}

}  // namespace
}  // namespace qb
