#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "platform/win32/ProfileOracleFixture.h"

// The same calls through our profile files and through the system's own functions, on two copies of one file.
// Every answer and the bytes of the file are compared after every call. What Wine is known to do otherwise
// stands in docs/profile-files.md; here it is either kept out of the draw or taken out by `NormalForm`.

namespace qb {
namespace {

using std::operator""sv;

constexpr std::string_view kBlanks(" \t\v\f\r\n\x1A", 7);

std::string Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

std::string UpToNul(const std::string& text) {
  return text.substr(0, text.find('\0'));
}

/// One line as Wine writes all of them back: without blanks around header, name and value, and up to a NUL.
std::string NormalLine(std::string_view bytes) {
  const std::string line = Trimmed(bytes);
  const std::size_t bracket = line.rfind(']');
  if (line.starts_with('[') && bracket != std::string::npos) {
    return "[" + UpToNul(Trimmed(line.substr(1, bracket - 1))) + "]";
  }
  const std::size_t sign = line.find('=');
  std::string normal = UpToNul(Trimmed(line.substr(0, sign)));
  if (sign != std::string::npos) normal += "=" + UpToNul(Trimmed(line.substr(sign + 1)));
  return normal;
}

/// A file's lines as they are after Wine has written them: those of blanks are gone, and so are further ones
/// without a name behind one without a name.
std::string NormalForm(std::string_view bytes) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  std::string normal;
  bool wasNameless = false;
  if (bytes.starts_with(kMark)) {
    normal = kMark;
    bytes.remove_prefix(kMark.size());
  }
  while (!bytes.empty()) {
    const std::size_t end = bytes.find_first_of("\r\n");
    const std::string line = NormalLine(bytes.substr(0, end));
    const bool isNameless = line.starts_with('=');
    if (!line.empty() && !(isNameless && wasNameless)) normal += line + "\r\n";
    if (!line.empty()) wasNameless = isNameless;
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  }
  return normal;
}

std::string AsciiUpperCase(std::string text) {
  for (char& byte : text) byte = byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte;
  return text;
}

/// Whether more than one section has this name.
bool IsRepeated(std::string_view bytes, const std::string& section) {
  const std::string lines = AsciiUpperCase("\r\n" + NormalForm(bytes));
  const std::string header = "\r\n[" + AsciiUpperCase(section) + "]\r\n";
  return lines.find(header) != lines.rfind(header);
}

/// Whether the system has cut the last letter off a text in quotes that just fits.
bool IsCutQuotedText(const std::string& ours, const std::string& theirs, std::size_t size) {
  return !ours.empty() && ours.size() + 1 == size && theirs == ours.substr(0, ours.size() - 1);
}

/// Draws files and calls from a few words, so that they meet often.
class Dice {
 public:
  Dice(unsigned seed, bool proper) : engine_(seed), proper_(proper) {}

  std::size_t Below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(engine_);
  }

  template <std::size_t Count>
  std::string Of(const std::array<std::string_view, Count>& words) {
    return std::string(words[Below(Count)]);
  }

  std::string Section() {
    return Of(std::array{"A"sv, "a"sv, "GLOBAL"sv, "Global"sv, "1"sv, "2"sv, "12"sv, "ADD1"sv, "C D"sv,
                         "B]"sv,
                         "Gr\u00F6\u00DF"
                         "e"sv,
                         "0"sv});
  }
  std::string Key() {
    return Of(std::array{"K"sv, "k"sv, "1PHIO"sv, "1FILE_NAME1"sv, "1file_name1"sv, "1FILE_NAME2"sv,
                         "TITLE"sv, "L M"sv, "\u00DCber"sv, "'q'"sv, "K;"sv, "]"sv});
  }
  std::string Value() {
    return Of(std::array{""sv, "1"sv, "v w"sv, "\"q\""sv, "'q'"sv, "\"q'"sv, "\""sv, "\"\""sv, "\" x \""sv,
                         "\"\"q\"\""sv, "a=b"sv, ";c"sv, "[x]"sv, "Gr\u00FC\u00DF"sv, "\u20AC 5,-"sv,
                         "x\ty"sv, "a rather long value that does not fit everywhere"sv});
  }
  std::string Blank() {
    if (proper_) return {};
    return Of(std::array{""sv, ""sv, ""sv, " "sv, "\t"sv, "  "sv, "\v"sv, "\f "sv});
  }

  /// As an exporter writes it.
  std::string ProperLine() {
    if (Below(5) == 0) return "[" + Section() + "]\r\n";
    return Key() + "=" + Value() + "\r\n";
  }

  std::string MalformedLine() {
    std::string line;
    switch (Below(10)) {
      case 0:
      case 1:
        line = Blank() + "[" + Blank() + Section() + Blank() + "]" +
               Of(std::array{""sv, ""sv, " ; c"sv, "]"sv, "x"sv});
        break;
      case 2:
        line = Of(std::array{""sv, " "sv, "\t"sv, ";c"sv, "; a = b"sv, ";[A]"sv, "text"sv, "[open"sv,
                             "[x = y"sv, "=v"sv, " = "sv, "]"sv, "\x1A"sv, "K\0x=1"sv, "K=1\0x"sv, "=="sv});
        break;
      case 3:
        line = Key();
        break;
      default:
        line = Blank() + Key() + Blank() + "=" + Blank() + Value() + Blank();
    }
    return line + Of(std::array{"\r\n"sv, "\r\n"sv, "\n"sv, "\r"sv, "\r\r\n"sv, "\n\r\n"sv});
  }

  std::string File() {
    std::string text(!proper_ && Below(10) == 0 ? "\xEF\xBB\xBF" : "");
    for (std::size_t lines = Below(30); lines > 0; --lines) text += proper_ ? ProperLine() : MalformedLine();
    if (!proper_ && Below(4) == 0) text = text.substr(0, text.find_last_not_of("\r\n") + 1);
    return text;
  }

 private:
  std::mt19937 engine_;
  bool proper_;
};

class ProfileOracleCallsTest : public ProfileOracleTest {
 protected:
  void CompareValue(Dice& dice) {
    constexpr std::array<std::size_t, 10> kSizes{0, 1, 2, 3, 4, 5, 20, 255, 255, 510};
    const std::string section = dice.Blank() + dice.Section() + dice.Blank();
    const std::string key = dice.Blank() + dice.Key() + dice.Blank();
    const std::string otherwise = dice.Of(
        std::array{"-"sv, ""sv, "d"sv, "d  "sv, "  d"sv, "\"d\""sv, "' d'"sv, "d\t"sv, "\u00C4"sv, "xyz"sv});
    const std::size_t size = kSizes[dice.Below(kSizes.size())];
    const std::string ours = ours_.GetPrivateProfileString(section, key, otherwise, size, kOurs);
    const std::string theirs = TheirValue(section, key, otherwise, size);
    if (IsCutQuotedText(ours, theirs, size)) return;
    ASSERT_EQ(ours, theirs) << '[' << section << "] " << key << ", otherwise '" << otherwise << "', size "
                            << size;
  }

  void CompareSectionNames(Dice& dice) {
    const std::size_t size = dice.Below(2) == 0 ? dice.Below(30) : 32766;
    std::string names = ours_.GetPrivateProfileSectionNames(size, kOurs);
    // The last one of the two NULs at the end is not counted there, nor is the end of a list that was cut.
    names.pop_back();
    ASSERT_EQ(names, TheirSectionNames(size)) << "size " << size;
  }

  void CompareWrite(Dice& dice) {
    std::string section = dice.Section();
    std::optional<std::string> key = dice.Key();
    std::optional<std::string> value;
    const std::size_t kind = dice.Below(20);
    if (kind == 0) key.reset();
    if (kind > 5) {  // blanks around the names of what is removed are not seen through there
      section = dice.Blank() + section + dice.Blank();
      key = dice.Blank() + *key + dice.Blank();
      value = dice.Blank() + dice.Value() + dice.Blank();
    }
    const bool found = ours_.GetPrivateProfileString(section, key.value_or(""), "none", 10, kOurs) != "none";
    const std::string before = Content(kOurs);
    const bool written = ours_.WritePrivateProfileString(section, key, value, kOurs);
    if (key && !value && !found && IsRepeated(before, Bytes(section))) {
      ASSERT_EQ(Content(kOurs), before) << "what cannot be read there cannot be removed";
      return;
    }
    ASSERT_EQ(written, TheirWrite(section, key, value))
        << '[' << section << "] " << key.value_or("(none)") << " = " << value.value_or("(none)");
  }

  void CompareCalls(unsigned seed, bool proper) {
    Dice dice(seed, proper);
    const std::string bytes = Bytes(dice.File());
    SCOPED_TRACE("seed " + std::to_string(seed) + ", file " + ::testing::PrintToString(bytes));
    Begin(bytes);
    for (int call = 0; call < 40; ++call) {
      SCOPED_TRACE("call " + std::to_string(call) + ", file " + ::testing::PrintToString(Content(kOurs)));
      const std::size_t kind = dice.Below(10);
      if (kind < 4) {
        CompareValue(dice);
      } else if (kind == 4) {
        CompareSectionNames(dice);
      } else {
        CompareWrite(dice);
      }
      const std::string ours = Content(kOurs);
      const std::string theirs = Content(theirs_);
      if (HasFatalFailure()) return;
      ASSERT_EQ(proper ? ours : NormalForm(ours), proper ? theirs : NormalForm(theirs));
    }
  }
};

TEST_F(ProfileOracleCallsTest, ProperFiles_EveryAnswerAndEveryByteIsTheSystems) {
  for (unsigned seed = 1; seed <= 20; ++seed) ASSERT_NO_FATAL_FAILURE(CompareCalls(seed, true));
}

TEST_F(ProfileOracleCallsTest, MalformedFiles_EveryAnswerAndEveryLineIsTheSystems) {
  for (unsigned seed = 1001; seed <= 1035; ++seed) ASSERT_NO_FATAL_FAILURE(CompareCalls(seed, false));
}

}  // namespace
}  // namespace qb
