#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

#include "runtime/RuntimeError.h"

namespace qb {
namespace {

class RuntimeErrorTest : public ::testing::Test {
 protected:
  RuntimeErrorTest() { Err.Clear(); }
  ~RuntimeErrorTest() override { Err.Clear(); }
};

TEST_F(RuntimeErrorTest, StandardDescription_Table) {
  struct Row {
    long number;
    std::string_view text;
  };
  for (const Row& row : {
           Row{5, "Invalid procedure call or argument"},
           Row{6, "Overflow"},
           Row{7, "Out of memory"},
           Row{9, "Subscript out of range"},
           Row{13, "Type mismatch"},
           Row{51, "Internal error"},
           Row{53, "File not found"},
           Row{57, "Device I/O error"},
           Row{61, "Disk full"},
           Row{70, "Permission denied"},
           Row{75, "Path/File access error"},
           Row{76, "Path not found"},
           Row{91, "Object variable not set"},
           Row{457, "This key is already associated with an element of this collection"},
           Row{0, ""},
           Row{-42, ""},
       }) {
    EXPECT_EQ(StandardDescription(row.number), row.text) << row.number;
  }
}

TEST_F(RuntimeErrorTest, Error_WithoutDescription_HasTheStandardOne) {
  const RuntimeError error(failure::kFileNotFound);
  EXPECT_EQ(error.Description(), "File not found");
  EXPECT_EQ(std::string_view(error.what()), "File not found");
  EXPECT_EQ(RuntimeError(failure::kOwn, "here", "my own").Description(), "my own");
}

TEST_F(RuntimeErrorTest, RaiseAbout_NamesTheThingAtFault) {
  try {
    RaiseAbout(failure::kDiskFull, R"(\a\b)");
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 61);
    EXPECT_EQ(error.Description(), R"(Disk full ('\a\b'))");
  }
}

TEST_F(RuntimeErrorTest, Attempt_ThatComesThrough_ClearsThePendingError) {
  Err.Number = 5;
  Err.LastDllError = 2;
  EXPECT_TRUE(Attempt([] {}));
  EXPECT_EQ(Err.Number, 0);
  EXPECT_EQ(Err.LastDllError, 0);
}

TEST_F(RuntimeErrorTest, Attempt_ThatFails_LeavesAllOfTheErrorPending) {
  EXPECT_FALSE(Attempt([] { throw RuntimeError(-42, "source", "description", 17, "help.chm"); }));
  EXPECT_EQ(Err.Number, -42);
  EXPECT_EQ(Err.Source, "source");
  EXPECT_EQ(Err.Description, "description");
  EXPECT_EQ(Err.HelpContext, 17);
  EXPECT_EQ(Err.HelpFile, "help.chm");
}

TEST_F(RuntimeErrorTest, Attempt_OtherExceptions_BecomeFailuresOfTheLanguage) {
  EXPECT_FALSE(Attempt([] { throw std::bad_alloc(); }));
  EXPECT_EQ(Err.Number, failure::kOutOfMemory);
  EXPECT_FALSE(Attempt([] { throw std::logic_error("broken"); }));
  EXPECT_EQ(Err.Number, failure::kInternalError);
  EXPECT_EQ(Err.Description, "broken");
}

TEST_F(RuntimeErrorTest, Attempt_WhatIsNoFailure_IsPassedOn) {
  struct EndOfProcess {};
  EXPECT_THROW(Attempt([] { throw EndOfProcess{}; }), EndOfProcess);
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(RuntimeErrorTest, Attempt_InsideAnother_LeavesTheInnerError) {
  EXPECT_TRUE(Attempt([] { EXPECT_FALSE(Attempt([] { throw RuntimeError(failure::kOverflow); })); }));
  EXPECT_EQ(Err.Number, failure::kOverflow);
}

}  // namespace
}  // namespace qb
