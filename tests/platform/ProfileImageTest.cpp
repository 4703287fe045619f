#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/HostPlatform.h"
#include "platform/ProfileImage.h"
#include "runtime/Text.h"
#include "support/ImageBytes.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::Optional;

std::string Bytes(std::string_view text) {
  return std::string(text);
}

std::optional<std::string> Read(std::string_view bytes, std::string_view section, std::string_view key) {
  const ProfileImage image{std::string(bytes)};
  const std::optional<std::string_view> value = image.Value(section, key);
  return value ? std::optional(std::string(*value)) : std::nullopt;
}

std::string AfterWrite(std::string_view bytes, const ProfileChange& change) {
  ProfileImage image{std::string(bytes)};
  image.Apply(change);
  EXPECT_EQ(image.ByteLength(), BytesOf(image).size());
  return BytesOf(image);
}

std::string AfterSet(std::string_view bytes, std::string_view section, std::string_view key,
                     std::string_view value) {
  return AfterWrite(bytes, {section, key, value});
}

struct ReadCase {
  std::string_view name;
  std::string_view bytes;
  std::string_view section;
  std::string_view key;
  std::optional<std::string_view> value;
};

using std::operator""sv;

const ReadCase kReadCases[] = {
    {"Plain", "[A]\r\nK=v\r\n", "A", "K", "v"},
    {"LineFeedOnly", "[A]\nK=v\n", "A", "K", "v"},
    {"NoFinalLineEnd", "[A]\r\nK=v", "A", "K", "v"},
    {"EmptyFile", "", "A", "K", std::nullopt},
    {"MissingSection", "[A]\nK=v\n", "B", "K", std::nullopt},
    {"MissingKey", "[A]\nK=v\n", "A", "L", std::nullopt},
    {"EmptyKey", "[A]\n=v\n", "A", "", std::nullopt},
    {"EmptyValue", "[A]\nK=\n", "A", "K", ""},
    {"FirstSectionWins", "[A]\nK=1\n[A]\nK=2\n", "A", "K", "1"},
    {"FirstSectionOfANameOnly", "[A]\nL=1\n[A]\nK=2\n", "A", "K", std::nullopt},
    {"FirstKeyWins", "[A]\nK=1\nK=2\n", "A", "K", "1"},
    {"SectionInAnyCase", "[Global]\nK=v\n", "GLOBAL", "K", "v"},
    {"KeyInAnyCase", "[A]\ndstLanguage=EN\n", "A", "DSTLANGUAGE", "EN"},
    {"BlanksAroundTheSectionAskedFor", "[1]\nK=v\n", " 1", "K", "v"},
    {"BlanksAroundTheKeyAskedFor", "[1]\nK=v\n", "1", " K\t", "v"},
    {"BlanksInTheHeader", "[ 1\t]\nK=v\n", "1", "K", "v"},
    {"BlanksBeforeTheHeader", " \t[1]\nK=v\n", "1", "K", "v"},
    {"TextBehindTheHeader", "[1] rest\nK=v\n", "1", "K", "v"},
    {"BlanksAroundKeyAndValue", "[A]\n \tK \t= \tv w \t\r\n", "A", "K", "v w"},
    {"DoubleQuotes", "[A]\nK=\"v\"\n", "A", "K", "v"},
    {"SingleQuotes", "[A]\nK='v'\n", "A", "K", "v"},
    {"QuotesKeepBlanks", "[A]\nK= \" v \" \n", "A", "K", " v "},
    {"OnePairOnly", "[A]\nK=\"\"v\"\"\n", "A", "K", "\"v\""},
    {"EmptyQuotes", "[A]\nK=\"\"\n", "A", "K", ""},
    {"LoneQuote", "[A]\nK=\"\n", "A", "K", "\""},
    {"QuoteAtTheFrontOnly", "[A]\nK=\"v\n", "A", "K", "\"v"},
    {"UnequalQuotes", "[A]\nK=\"v'\n", "A", "K", "\"v'"},
    {"EqualsSignInTheValue", "[A]\nK=a=b\n", "A", "K", "a=b"},
    {"LineWithoutEqualsSign", "[A]\nK\n", "A", "K", std::nullopt},
    {"LineWithoutEqualsSignIsTheFirst", "[A]\nK\nK=v\n", "A", "K", std::nullopt},
    {"Comment", "[A]\n;K=v\n", "A", "K", std::nullopt},
    {"CommentIsNoKey", "[A]\n;K=v\n", "A", ";K", std::nullopt},
    {"IndentedComment", "[A]\n  ;K=v\n", "A", ";K", std::nullopt},
    {"CommentedHeader", "[A]\n;[B]\nK=v\n", "A", "K", "v"},
    {"SemicolonInTheValue", "[A]\nK=v;w\n", "A", "K", "v;w"},
    {"TextBeforeTheFirstSection", "K=v\n[A]\n", "", "K", std::nullopt},
    {"SectionWithoutAName", "[]\nK=v\n", "", "K", "v"},
    {"HeaderWithoutBracketIsAKey", "[A]\n[B=v\nK=w\n", "A", "K", "w"},
    {"ByteOrderMark", "\xEF\xBB\xBF[A]\nK=v\n", "A", "K", "v"},
    {"ValueUpToNul", "[A]\nK=v\0w\n"sv, "A", "K", "v"},
    {"ValueBehindALineWithNul", "[A]\nL=v\0w\nK=x\n"sv, "A", "K", "x"},
    {"EndOfTextFileMark", "[A]\r\nK=v\r\n\x1A", "A", "K", "v"},
    {"CarriageReturnsAlone", "[A]\rK=v\rL=w\r", "A", "K", "v"},
    {"CarriageReturnAloneInAMixedFile", "[A]\r\nK=v\rL=w\r\n", "A", "L", "w"},
    {"CarriageReturnsBeforeTheLineEnd", "[A]\r\r\nK=v\r\r\n", "A", "K", "v"},
};

class ReadProfileImage : public ::testing::TestWithParam<ReadCase> {};

TEST_P(ReadProfileImage, Value_AsInTheTable) {
  const ReadCase& row = GetParam();
  const std::optional<std::string> value = Read(row.bytes, row.section, row.key);
  if (row.value) {
    EXPECT_THAT(value, Optional(std::string(*row.value)));
  } else {
    EXPECT_EQ(value, std::nullopt);
  }
}

INSTANTIATE_TEST_SUITE_P(Table, ReadProfileImage, ::testing::ValuesIn(kReadCases),
                         [](const auto& info) { return std::string(info.param.name); });

struct WriteCase {
  std::string_view name;
  std::string_view before;
  ProfileChange change;
  std::string_view after;
};

const WriteCase kWriteCases[] = {
    {"ReplacesInPlace", "[A]\r\nK=1\r\nL=2\r\n", {"A", "K", "3"}, "[A]\r\nK=3\r\nL=2\r\n"},
    {"ReplacesTheFirstKey", "[A]\nK=1\nK=2\n", {"A", "K", "3"}, "[A]\nK=3\nK=2\n"},
    {"ReplacesInTheFirstSection", "[A]\nK=1\n[A]\nK=2\n", {"A", "K", "3"}, "[A]\nK=3\n[A]\nK=2\n"},
    {"KeepsTheSpellingOfTheKey", "[a]\n kEy\t= 1\n", {"A", "KEY", "2"}, "[a]\nkEy=2\n"},
    {"KeepsTheLineEndOfTheLine", "[A]\r\nK=1\nL=2\r\n", {"A", "K", "3"}, "[A]\r\nK=3\nL=2\r\n"},
    {"KeepsACarriageReturnAlone", "[A]\rK=1\rL=2\r", {"A", "K", "3"}, "[A]\rK=3\rL=2\r"},
    {"EndsANewLineAsWindowsDoesBehindCarriageReturns", "[A]\rK=1\r", {"A", "L", "2"}, "[A]\rK=1\rL=2\r\n"},
    {"KeepsAMissingFinalLineEnd", "[A]\r\nK=1", {"A", "K", "3"}, "[A]\r\nK=3"},
    {"GivesAKeyWithoutValueOne", "[A]\nK\n", {"A", "K", "3"}, "[A]\nK=3\n"},
    {"LongerValue", "[A]\nK=1\nL=2\n", {"A", "K", "a longer value"}, "[A]\nK=a longer value\nL=2\n"},
    {"EmptyValue", "[A]\nK=1\nL=2\n", {"A", "K", ""}, "[A]\nK=\nL=2\n"},
    {"StripsBlanksInFront", "[A]\nK=1\n", {"A", "K", " \t2 "}, "[A]\nK=2 \n"},
    {"QuotesStandAsWritten", "[A]\nK=1\n", {"A", "K", "\" 2\""}, "[A]\nK=\" 2\"\n"},
    {"AddsBehindTheLastLine", "[A]\r\nK=1\r\n[B]\r\n", {"A", "L", "2"}, "[A]\r\nK=1\r\nL=2\r\n[B]\r\n"},
    {"AddsBeforeBlankLines", "[A]\nK=1\n\n \n[B]\n", {"A", "L", "2"}, "[A]\nK=1\nL=2\n\n \n[B]\n"},
    {"AddsBehindAComment", "[A]\nK=1\n;c\n\n[B]\n", {"A", "L", "2"}, "[A]\nK=1\n;c\nL=2\n\n[B]\n"},
    {"AddsToAnEmptySection", "[A]\n\n[B]\n", {"A", "L", "2"}, "[A]\nL=2\n\n[B]\n"},
    {"AddsBehindAMissingLineEnd", "[A]\r\nK=1", {"A", "L", "2"}, "[A]\r\nK=1\r\nL=2\r\n"},
    {"AddsBehindAHeaderWithoutLineEnd", "[A]", {"A", "L", "2"}, "[A]\r\nL=2\r\n"},
    {"AddsToTheFirstSectionOfTheName", "[A]\nK=1\n[A]\nL=2\n", {"A", "L", "3"}, "[A]\nK=1\nL=3\n[A]\nL=2\n"},
    {"AddsWithTheLineEndOfTheFile", "[A]\nK=1\r\n", {"A", "L", "2"}, "[A]\nK=1\r\nL=2\n"},
    {"AddsBeforeTheEndOfTextFileMark", "[A]\r\nK=1\r\n\x1A", {"A", "L", "2"}, "[A]\r\nK=1\r\nL=2\r\n\x1A"},
    {"TrimsNewNames", "[A]\nK=1\n", {" B\t", " L ", "2"}, "[A]\nK=1\n[B]\nL=2\n"},
    {"NewSectionAtTheEnd", "[A]\nK=1\n\n", {"B", "L", "2"}, "[A]\nK=1\n\n[B]\nL=2\n"},
    {"NewSectionBehindAMissingLineEnd", "[A]\nK=1", {"B", "L", "2"}, "[A]\nK=1\n[B]\nL=2\n"},
    {"NewSectionInAnEmptyFile", "", {"B", "L", "2"}, "[B]\r\nL=2\r\n"},
    {"NewSectionBehindAByteOrderMark", "\xEF\xBB\xBF", {"B", "L", "2"}, "\xEF\xBB\xBF[B]\r\nL=2\r\n"},
    {"NewSectionBehindLooseText", "text", {"B", "L", "2"}, "text\r\n[B]\r\nL=2\r\n"},
    {"RemovesAKey", "[A]\nK=1\nL=2\n", {"A", "k", {}}, "[A]\nL=2\n"},
    {"RemovesTheFirstKeyOfAName", "[A]\nK=1\nK=2\n", {"A", "K", {}}, "[A]\nK=2\n"},
    {"RemovesTheLastKey", "[A]\nK=1", {"A", "K", {}}, "[A]\n"},
    {"RemovesNoMissingKey", "[A]\nK=1\n", {"A", "L", {}}, "[A]\nK=1\n"},
    {"RemovesASection", "[A]\nK=1\n;c\n\n[B]\nL=2\n", {"a", {}, {}}, "[B]\nL=2\n"},
    {"RemovesTheFirstSectionOfAName", "[A]\nK=1\n[A]\nK=2\n", {"A", {}, {}}, "[A]\nK=2\n"},
    {"RemovesNoMissingSection", "[A]\nK=1\n", {"0", {}, {}}, "[A]\nK=1\n"},
    {"RemovesNoKeyOfAMissingSection", "[A]\nK=1\n", {"0", "K", {}}, "[A]\nK=1\n"},
    {"KeepsNulBytes", "x\0y\n[A]\nJ=\0\nK=1\n"sv, {"A", "K", "2"}, "x\0y\n[A]\nJ=\0\nK=2\n"sv},
    {"KeepsTheByteOrderMark", "\xEF\xBB\xBF[A]\nK=1\n", {"A", "K", "2"}, "\xEF\xBB\xBF[A]\nK=2\n"},
    {"KeepsLooseTextInFront", "K=0\n[A]\nK=1\n", {"A", "K", "2"}, "K=0\n[A]\nK=2\n"},
};

class WriteProfileImage : public ::testing::TestWithParam<WriteCase> {};

TEST_P(WriteProfileImage, Apply_AsInTheTable) {
  const WriteCase& row = GetParam();
  EXPECT_EQ(AfterWrite(row.before, row.change), row.after);
  if (row.change.value) {
    EXPECT_EQ(AfterWrite(row.after, row.change), row.after) << "written once more";
  }
}

TEST_P(WriteProfileImage, WouldChange_TellsWhetherAByteChanges) {
  const WriteCase& row = GetParam();
  EXPECT_EQ(ProfileImage(Bytes(row.before)).WouldChange(row.change), row.before != row.after);
}

INSTANTIATE_TEST_SUITE_P(Table, WriteProfileImage, ::testing::ValuesIn(kWriteCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ProfileImage, Apply_SameValue_LeavesTheLineAsItStands) {
  for (const std::string_view line : {" k = v \n", "K=v\n", "k=v\t", "K= v\r\n"}) {
    const std::string bytes = "[A]\n" + std::string(line);
    EXPECT_EQ(AfterSet(bytes, "A", "K", "v"), bytes);
  }
}

TEST(ProfileImage, Apply_SameValueWithBlanksAtItsEnd_LeavesTheLineAsItStands) {
  EXPECT_EQ(AfterSet("[A]\nK=v  \r\n", "A", "K", "v  "), "[A]\nK=v  \r\n");
}

TEST(ProfileImage, Apply_StoredValueInQuotes_IsAnotherValue) {
  EXPECT_EQ(AfterSet("[A]\nK=\"v\"\n", "A", "K", "v"), "[A]\nK=v\n");
}

TEST(ProfileImage, SectionNames_ListsAllInFileOrder) {
  const ProfileImage image(Bytes("x=1\n[B]\n[ a ]\nK=1\n;[C]\n[B]\n[]\n"));
  EXPECT_THAT(image.SectionNames(), ElementsAre("B", "a", "B", ""));
}

TEST(ProfileImage, SectionNames_AfterChanges_AreThoseOfTheBytes) {
  ProfileImage image(Bytes("[A]\n[B]\n[C]\n"));
  image.Apply({"B", {}, {}});
  image.Apply({"D", "K", "1"});
  EXPECT_THAT(image.SectionNames(), ElementsAre("A", "C", "D"));
}

TEST(ProfileImage, RemovedSection_WrittenAgain_StandsAtTheEnd) {
  ProfileImage image(Bytes("[A]\nK=1\n[B]\nL=1\n"));
  EXPECT_EQ(image.Value("A", "K"), "1");
  image.Apply({"A", {}, {}});
  EXPECT_EQ(image.Value("A", "K"), std::nullopt);
  image.Apply({"A", "M", "2"});
  EXPECT_EQ(BytesOf(image), "[B]\nL=1\n[A]\nM=2\n");
}

TEST(ProfileImage, RemovedDuplicate_MakesTheNextOneCount) {
  ProfileImage image(Bytes("[A]\nK=1\n[A]\nK=2\n[a]\nK=3\n"));
  image.Apply({"A", {}, {}});
  EXPECT_EQ(image.Value("A", "K"), "2");
  image.Apply({"A", {}, {}});
  EXPECT_EQ(image.Value("A", "K"), "3");
  image.Apply({"A", {}, {}});
  EXPECT_EQ(image.Value("A", "K"), std::nullopt);
  EXPECT_EQ(BytesOf(image), "");
}

TEST(ProfileImage, Apply_ValueThatIsAViewOfTheImage_IsCopied) {
  ProfileImage image(Bytes("[A]\nK=long value\nL=1\n"));
  image.Apply({"A", "L", image.Value("A", "K")});
  EXPECT_EQ(BytesOf(image), "[A]\nK=long value\nL=long value\n");
}

TEST(ProfileImage, Objection_Table) {
  struct Row {
    ProfileChange change;
    bool refused;
  };
  for (const Row& row : {
           Row{{"A", "K", "v"}, false},
           Row{{"A", "K", ""}, false},
           Row{{"A", "K", "a=b;[c]"}, false},
           Row{{"A", "K", "v\r"}, true},
           Row{{"A", "K", "v\nX=1"}, true},
           Row{{"A", "K", "v\0"sv}, true},
           Row{{"A", "K\n[B]", "v"}, true},
           Row{{"A", "K\rL", "v"}, true},
           Row{{"A", "K\0"sv, "v"}, true},
           Row{{"A\r\nX=1", "K", "v"}, true},
           Row{{"A", "", "v"}, true},
           Row{{"A", " ", "v"}, true},
           Row{{"A", "K=L", "v"}, true},
           Row{{"A", "[K]", "v"}, true},
           Row{{"A", ";K", "v"}, true},
           Row{{"A", "", {}}, false},
           Row{{"A\n", {}, {}}, false},
       }) {
    EXPECT_EQ(!ProfileImage::Objection(row.change).empty(), row.refused)
        << row.change.section << '/' << row.change.key.value_or("-");
  }
}

ProfileImage ImageIn(CodePage codePage, std::string_view text) {
  static const std::unique_ptr<TextCodec> codec = MakeHostTextCodec();
  ProfileImage image(codec->Encode(text, codePage));
  image.SetFolding([codePage](std::string_view name) { return UpperCase(codec->Decode(name, codePage)); });
  return image;
}

std::string In(CodePage codePage, std::string_view text) {
  return MakeHostTextCodec()->Encode(text, codePage);
}

TEST(ProfileImage, NamesOfACodePage_MatchInAnyCase) {
  EXPECT_EQ(ImageIn(1252, "[Größe]\nÜber=v\n").Value(In(1252, "GRÖßE"), In(1252, "üBER")), "v");
  EXPECT_EQ(ImageIn(1251, "[Привет]\nМир=v\n").Value(In(1251, "ПРИВЕТ"), In(1251, "мир")), "v");
  EXPECT_EQ(ImageIn(932, "[表示]\nキーａ=v\n").Value(In(932, "表示"), In(932, "キーＡ")), "v");
}

TEST(ProfileImage, NamesOfACodePage_OtherLetters_DoNotMatch) {
  EXPECT_EQ(ImageIn(1252, "[A]\nÜ=v\n").Value("A", In(1252, "Ä")), std::nullopt);
  EXPECT_EQ(ImageIn(1252, "[A]\nÜ=v\n").Value("A", "U"), std::nullopt);
}

TEST(ProfileImage, TrailBytes_AreNotTakenForLetters) {
  // Bytes 0x83 0x41 and 0x83 0x61 are two characters of code page 932, not two cases of one.
  EXPECT_EQ(ImageIn(932, "[ア]\nK=v\n").Value("\x83\x61", "K"), std::nullopt);
  EXPECT_EQ(ImageIn(932, "[ア]\nK=v\n").Value("\x83\x41", "K"), "v");
}

TEST(ProfileImage, TrailByteThatLooksLikeABackslash_StaysPartOfItsCharacter) {
  ProfileImage image = ImageIn(932, "[ソ表]\n能=v\n");
  EXPECT_EQ(image.Value(In(932, "ソ表"), In(932, "能")), "v");
  image.Apply({In(932, "ソ表"), In(932, "能"), In(932, "ソ")});
  EXPECT_EQ(BytesOf(image), In(932, "[ソ表]\n能=ソ\n"));
}

TEST(ProfileImage, TrailByteThatLooksLikeABracket_IsNotTheEndOfTheHeader) {
  // The second byte of 十 is 0x5C, that of ゾ 0x5D: a closing bracket.
  EXPECT_EQ(ImageIn(932, "[ゾ十]\nK=v\n").Value(In(932, "ゾ十"), "K"), "v");
}

}  // namespace
}  // namespace qb
