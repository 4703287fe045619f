#include <gtest/gtest.h>

#include <filesystem>

#include "wx/CommandTail.h"
#include "wx/WxText.h"

namespace qb {
namespace {

std::string InCurrentFolder(const std::string& name) {
  return KeptPath((std::filesystem::current_path() / name).string());
}

TEST(CommandTailTest, CommandTail_NoArguments_IsEmpty) {
  EXPECT_EQ(CommandTail({}), "");
}

TEST(CommandTailTest, CommandTail_AbsolutePath_GetsTheProgramsSeparators) {
  EXPECT_EQ(CommandTail({"/home/u/pkg/Trans.pxf"}), R"(\home\u\pkg\Trans.pxf)");
}

TEST(CommandTailTest, CommandTail_RelativePath_BecomesAbsolute) {
  EXPECT_EQ(CommandTail({"pkg/Trans.pxf"}), InCurrentFolder("pkg/Trans.pxf"));
}

TEST(CommandTailTest, CommandTail_StepsUp_AreTaken) {
  EXPECT_EQ(CommandTail({"a/../Trans.pxf"}), InCurrentFolder("Trans.pxf"));
}

TEST(CommandTailTest, CommandTail_PathInTheProgramsWriting_StaysAsItStands) {
  EXPECT_EQ(CommandTail({R"(\home\u\Trans.pxf)"}), R"(\home\u\Trans.pxf)");
}

TEST(CommandTailTest, CommandTail_SeveralArguments_AreOnePathWithBlanks) {
  EXPECT_EQ(CommandTail({"/home/my", "package.pxf"}), R"(\home\my package.pxf)");
}

TEST(CommandTailTest, CommandTail_Quotes_Stay) {
  EXPECT_EQ(CommandTail({R"("/home/a.pxf")"}), InCurrentFolder(R"("/home/a.pxf")"));
}

TEST(CommandTailTest, CommandTail_WhatLooksLikeAnOption_IsAPath) {
  EXPECT_EQ(CommandTail({"--help"}), InCurrentFolder("--help"));
}

}  // namespace
}  // namespace qb
