#include <windows.h>
// The first of these needs the types of the one above.
#include <shellapi.h>

#include <array>
#include <csignal>
#include <memory>
#include <string_view>

#include "apps/qbt/HostTerminal.h"

namespace qb {
namespace {

std::string Utf8(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  std::string bytes(static_cast<std::size_t>(
                        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
                    '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                      nullptr);
  return bytes;
}

bool IsConsole(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != FALSE;
}

/// Lets the console move the cursor and clear lines as a terminal does.
void UnderstandSequences(DWORD stream) {
  const HANDLE console = GetStdHandle(stream);
  DWORD mode = 0;
  if (GetConsoleMode(console, &mode) != FALSE) {
    SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  }
}

/// The console speaks UTF-8 until the program ends, and then again what its other programs expect.
class Utf8Console {
 public:
  Utf8Console() {
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleCP(CP_UTF8);
  }
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;
  ~Utf8Console() {
    SetConsoleOutputCP(output_);
    SetConsoleCP(input_);
  }

 private:
  UINT output_ = GetConsoleOutputCP();
  UINT input_ = GetConsoleCP();
};

struct FreeLocal {
  void operator()(LPWSTR* memory) const { LocalFree(memory); }
};

}  // namespace

const std::array<int, 3> kEndingSignals{SIGINT, SIGTERM, SIGBREAK};

std::vector<std::string> PrepareTerminal(int, char**) {
  static const Utf8Console utf8;
  UnderstandSequences(STD_OUTPUT_HANDLE);
  UnderstandSequences(STD_ERROR_HANDLE);
  // What `main` is given has gone through the ANSI code page, which need not hold every name of a file.
  int count = 0;
  const std::unique_ptr<LPWSTR, FreeLocal> wide(CommandLineToArgvW(GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8(wide.get()[i]));
  return arguments;
}

bool ErrorsGoToTerminal() {
  return IsConsole(STD_ERROR_HANDLE);
}

bool InputComesFromTerminal() {
  return IsConsole(STD_INPUT_HANDLE);
}

int ColumnsOfCharacter(char32_t character) {
  constexpr char32_t kFirstOutsideOfThePlane = 0x10000;
  constexpr char32_t kFirstPictograph = 0x1F300;
  // The system's table ends with the basic plane; what stands beyond it and is common in texts is wide.
  if (character >= kFirstOutsideOfThePlane) return character >= kFirstPictograph ? 2 : 1;
  const auto wide = static_cast<wchar_t>(character);
  std::array<WORD, 1> type{};
  if (GetStringTypeW(CT_CTYPE3, &wide, 1, type.data()) == FALSE) return 1;
  if ((type[0] & C3_NONSPACING) != 0) return 0;
  const bool isHalf = (type[0] & C3_HALFWIDTH) != 0;
  const bool isFull = (type[0] & (C3_FULLWIDTH | C3_IDEOGRAPH | C3_HIRAGANA)) != 0;
  return isFull && !isHalf ? 2 : 1;
}

}  // namespace qb
