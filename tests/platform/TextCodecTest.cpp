#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <string_view>

#include "platform/HostPlatform.h"
#include "runtime/Text.h"

namespace qb {
namespace {

using std::operator""sv;

constexpr CodePage kCodePages[] = {874,  932,  936,  949,  950,  1250, 1251, 1252,
                                   1253, 1254, 1255, 1256, 1257, 1258, kUtf8};

TEST(TextCodec, Texts_Table) {
  struct Row {
    CodePage codePage;
    std::string_view text;
    std::string_view bytes;
  };
  const std::unique_ptr<TextCodec> codec = MakeHostTextCodec();
  for (const Row& row : {
           Row{1252, "Größe äöüÄÖÜß €",
               "Gr\xF6\xDF"
               "e \xE4\xF6\xFC\xC4\xD6\xDC\xDF \x80"},
           Row{1251, "Привет", "\xCF\xF0\xE8\xE2\xE5\xF2"},
           Row{1250, "žluťoučký", "\x9Elu\x9Dou\xE8k\xFD"},
           Row{1253, "Ωμέγα", "\xD9\xEC\xDD\xE3\xE1"},
           Row{1254, "İğş", "\xDD\xF0\xFE"},
           Row{1255, "שלום", "\xF9\xEC\xE5\xED"},
           Row{1256, "سلام", "\xD3\xE1\xC7\xE3"},
           Row{1257, "ąčęė", "\xE0\xE8\xE6\xEB"},
           Row{874, "ไทย", "\xE4\xB7\xC2"},
           Row{932, "ソ表能ア", "\x83\x5C\x95\x5C\x94\x5C\x83\x41"},
           Row{932, "ｱ漢a",
               "\xB1\x8A\xBF"
               "a"},
           Row{936, "中文", "\xD6\xD0\xCE\xC4"},
           Row{949, "한글", "\xC7\xD1\xB1\xDB"},
           Row{950, "中文", "\xA4\xA4\xA4\xE5"},
           Row{kUtf8, "Größe 表 😀", "Größe 表 😀"},
           Row{12345, "ä", "\xE4"},
           Row{1252, "a\0b\r\n\\~"sv, "a\0b\r\n\\~"sv},
           Row{932, "a\0b\r\n\\~"sv, "a\0b\r\n\\~"sv},
       }) {
    EXPECT_EQ(codec->Encode(row.text, row.codePage), row.bytes) << row.codePage << ' ' << row.text;
    EXPECT_EQ(codec->Decode(row.bytes, row.codePage), row.text) << row.codePage << ' ' << row.text;
    EXPECT_TRUE(codec->CanEncode(row.text, row.codePage));
  }
}

TEST(TextCodec, Encode_CharactersThatTheCodePageLacks_BecomeQuestionMarks) {
  const std::unique_ptr<TextCodec> codec = MakeHostTextCodec();
  EXPECT_EQ(codec->Encode("a表Жz", 1252), "a??z");
  EXPECT_FALSE(codec->CanEncode("a表", 1252));
  EXPECT_FALSE(codec->CanEncode("ä", 932));
  EXPECT_TRUE(codec->CanEncode("a表Ж", kUtf8));
}

TEST(TextCodec, Decode_BytesWithoutMeaning_BecomePrivateCharacters) {
  const std::unique_ptr<TextCodec> codec = MakeHostTextCodec();
  EXPECT_EQ(codec->Decode("\x81", 1252), "\uF781");
  EXPECT_EQ(codec->Decode("\x81", 932), "\uF781") << "a first byte without a second";
  EXPECT_EQ(codec->Decode("\x81 x", 932), "\uF781 x");
  EXPECT_EQ(codec->Decode("\xC3(", kUtf8), "\uF7C3(");
  EXPECT_EQ(codec->Encode("\uF781\uF7FF", 1252), "\x81\xFF");
  EXPECT_TRUE(codec->CanEncode("\uF781", 1252));
}

bool HasPairs(CodePage codePage) {
  return codePage >= 932 && codePage <= 950;
}

TEST(TextCodec, AnyBytes_ComeBackUnchanged) {
  const std::unique_ptr<TextCodec> codec = MakeHostTextCodec();
  std::mt19937 engine(20030517);
  std::uniform_int_distribution<int> byte(0, 255);
  for (const CodePage codePage : kCodePages) {
    for (int round = 0; round < 200 && !HasPairs(codePage); ++round) {
      std::string bytes;
      for (int i = 0; i < 60; ++i) bytes.push_back(static_cast<char>(byte(engine)));
      ASSERT_EQ(codec->Encode(codec->Decode(bytes, codePage), codePage), bytes) << codePage;
    }
  }
}

TEST(TextCodec, AnyPairOfBytes_KeepsItsText) {
  const std::unique_ptr<TextCodec> codec = MakeHostTextCodec();
  for (const CodePage codePage : {932U, 936U, 949U, 950U}) {
    for (unsigned pair = 0x8000; pair <= 0xFFFFU; ++pair) {
      const std::string bytes{static_cast<char>(pair >> 8U), static_cast<char>(pair & 0xFFU)};
      const std::string text = codec->Decode(bytes, codePage);
      const std::string again = codec->Encode(text, codePage);
      // Some characters have several spellings; what is no character keeps its bytes.
      ASSERT_EQ(codec->Decode(again, codePage), text) << codePage << ' ' << pair;
      if (CharacterCount(text) == 2) {
        ASSERT_EQ(again, bytes) << codePage << ' ' << pair;
      }
    }
  }
}

TEST(TextCodec, AnyByteAlone_ComesBackUnchanged) {
  const std::unique_ptr<TextCodec> codec = MakeHostTextCodec();
  for (const CodePage codePage : kCodePages) {
    for (int byte = 0; byte < 256; ++byte) {
      const std::string bytes(1, static_cast<char>(byte));
      EXPECT_EQ(codec->Encode(codec->Decode(bytes, codePage), codePage), bytes) << codePage << ' ' << byte;
    }
  }
}

TEST(TextCodec, Utf8_PrivateCharactersInAFile_ComeBackUnchanged) {
  const std::unique_ptr<TextCodec> codec = MakeHostTextCodec();
  const std::string bytes = "x\uF781\uF7FFy";
  EXPECT_EQ(codec->Encode(codec->Decode(bytes, kUtf8), kUtf8), bytes);
}

TEST(TextCodec, CodePageOfLanguage_Table) {
  struct Row {
    std::string_view language;
    CodePage codePage;
  };
  const std::unique_ptr<TextCodec> codec = MakeHostTextCodec();
  for (const Row& row : {
           Row{"DE", 1252},   Row{"EN", 1252}, Row{"FR", 1252},    Row{"PT", 1252},   Row{"JA", 932},
           Row{"ja", 932},    Row{"ZH", 936},  Row{"ZH_TW", 950},  Row{"zh-HK", 950}, Row{"ZF", 950},
           Row{"zh-CN", 936}, Row{"KO", 949},  Row{"RU", 1251},    Row{"BG", 1251},   Row{"UK", 1251},
           Row{"SR", 1251},   Row{"PL", 1250}, Row{"CS", 1250},    Row{"HU", 1250},   Row{"SK", 1250},
           Row{"SL", 1250},   Row{"HR", 1250}, Row{"RO", 1250},    Row{"EL", 1253},   Row{"TR", 1254},
           Row{"HE", 1255},   Row{"AR", 1256}, Row{"ET", 1257},    Row{"LV", 1257},   Row{"LT", 1257},
           Row{"VI", 1258},   Row{"TH", 874},  Row{"de-AT", 1252},
       }) {
    EXPECT_EQ(codec->CodePageOfLanguage(row.language), row.codePage) << row.language;
  }
}

}  // namespace
}  // namespace qb
