#include "platform/linux/IconvSource.h"

#include <iconv.h>

#include <cerrno>
#include <string>

namespace qb {
namespace {

/// A conversion of the system's library.
class Conversion {
 public:
  Conversion(const std::string& to, const std::string& from)
      : handle_(iconv_open(to.c_str(), from.c_str())) {}
  Conversion(const Conversion&) = delete;
  Conversion& operator=(const Conversion&) = delete;
  ~Conversion() {
    if (*this) iconv_close(handle_);
  }

  // The cast is iconv's own sign of failure.
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  explicit operator bool() const { return handle_ != reinterpret_cast<iconv_t>(-1); }
  iconv_t Handle() const { return handle_; }

 private:
  iconv_t handle_;
};

/// Converts a few bytes; nothing if they do not convert, and then errno tells whether bytes are missing.
std::optional<std::string> Convert(iconv_t conversion, std::string_view bytes) {
  std::string input(bytes);
  std::string output(16, '\0');
  char* from = input.data();
  char* to = output.data();
  std::size_t fromLeft = input.size();
  std::size_t toLeft = output.size();
  iconv(conversion, nullptr, nullptr, nullptr, nullptr);
  if (iconv(conversion, &from, &fromLeft, &to, &toLeft) != 0) return std::nullopt;
  // Some code pages keep a character back to see whether a mark follows.
  if (iconv(conversion, nullptr, nullptr, &to, &toLeft) != 0) return std::nullopt;
  output.resize(output.size() - toLeft);
  return output;
}

std::string LittleEndian(char32_t character) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes.push_back(static_cast<char>((character >> (8 * i)) & 0xFFU));
  return bytes;
}

class IconvSource : public CodePageSource {
 public:
  explicit IconvSource(const std::string& name)
      : toUnicode_("UTF-32LE", name), fromUnicode_(name, "UTF-32LE") {}
  explicit operator bool() const { return toUnicode_ && fromUnicode_; }

  char32_t Character(std::string_view bytes) override {
    errno = 0;
    const std::optional<std::string> output = Convert(toUnicode_.Handle(), bytes);
    if (!output) return errno == EINVAL ? kLead : kNothing;
    if (output->size() != 4) return kNothing;
    char32_t character = 0;
    for (int i = 3; i >= 0; --i) {
      character = (character << 8U) | static_cast<unsigned char>((*output)[static_cast<std::size_t>(i)]);
    }
    return character;
  }

  std::optional<std::string> UsualBytes(char32_t character) override {
    return Convert(fromUnicode_.Handle(), LittleEndian(character));
  }

 private:
  Conversion toUnicode_;
  Conversion fromUnicode_;
};

}  // namespace

std::unique_ptr<CodePageSource> MakeIconvSource(CodePage codePage) {
  auto source = std::make_unique<IconvSource>("CP" + std::to_string(codePage));
  if (!*source) return nullptr;
  return source;
}

}  // namespace qb
