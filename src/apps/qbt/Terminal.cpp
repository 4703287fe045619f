#include "apps/qbt/Terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <iostream>

#include "apps/qbt/HostTerminal.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::size_t kBarWidth = 30;
constexpr std::size_t kLineWidth = 79;
constexpr std::string_view kStartOfLine = "\r\x1b[K";

std::string_view WithinLine(std::string_view text) {
  return FirstCharacters(text, kLineWidth);
}

}  // namespace

std::string Printable(std::string_view text) {
  constexpr char32_t kDelete = 0x7F;
  constexpr char32_t kLastControl = 0x9F;
  std::string printable;
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    const bool isControl = character < U' ' || (character >= kDelete && character <= kLastControl);
    AppendCharacter(printable, isControl ? U'?' : character);
  }
  return printable;
}

std::size_t ColumnsOf(std::string_view text) {
  std::size_t columns = 0;
  while (!text.empty()) columns += static_cast<std::size_t>(ColumnsOfCharacter(TakeCharacter(text)));
  return columns;
}

Terminal::Terminal()
    : canAsk_(InputComesFromTerminal() && ErrorsGoToTerminal()), showsProgress_(ErrorsGoToTerminal()) {
}

void Terminal::Write(std::string_view text) {
  ClearProgress();
  std::cout << text << std::flush;
}

void Terminal::Tell(std::string_view text) {
  ClearProgress();
  std::string_view indent = "qbt: ";
  for (const std::string& line : Split(text, "\n")) {
    std::cerr << indent << Printable(line) << '\n';
    indent = "     ";
  }
}

std::optional<std::string> Terminal::Ask(std::string_view question) {
  ClearProgress();
  std::cerr << question << std::flush;
  std::string answer;
  if (!std::getline(std::cin, answer)) {
    std::cerr << '\n';
    return std::nullopt;
  }
  return answer;
}

void Terminal::DrawProgress(std::size_t done, std::size_t total, std::string_view what) {
  if (total == 0) return;
  const std::size_t filled = std::min(done, total) * kBarWidth / total;
  DrawLine(fmt::format("[{:#<{}}{:.<{}}] {}/{} {}", "", filled, "", kBarWidth - filled, done, total, what));
}

void Terminal::DrawLine(std::string_view text) {
  if (!showsProgress_) return;
  std::cerr << kStartOfLine << WithinLine(Printable(text)) << std::flush;
  drawn_ = true;
}

void Terminal::ClearProgress() {
  if (!drawn_) return;
  std::cerr << kStartOfLine << std::flush;
  drawn_ = false;
}

}  // namespace qb
