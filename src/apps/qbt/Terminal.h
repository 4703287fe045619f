#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qb {

/// `text` without the characters that would steer a terminal, since packages come from strangers.
std::string Printable(std::string_view text);

/// Columns that a text takes on a terminal.
std::size_t ColumnsOf(std::string_view text);

/// Where the program speaks: results on the standard output, everything else on the error stream. A progress
/// line is drawn on a terminal only, and goes before anything else is said.
class Terminal {
 public:
  Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal() { ClearProgress(); }

  /// Whether somebody is there to answer.
  bool CanAsk() const { return canAsk_; }
  bool ShowsProgress() const { return showsProgress_; }

  /// Writes a result as it is.
  void Write(std::string_view text);
  /// Writes "qbt: <text>" on the error stream, each further line indented below it.
  void Tell(std::string_view text);
  /// Puts a question and returns the line that was answered; nothing at the end of input.
  std::optional<std::string> Ask(std::string_view question);

  /// Draws a bar of `done` of `total` parts and what is in hand.
  void DrawProgress(std::size_t done, std::size_t total, std::string_view what);
  /// Draws a line that is replaced by the next.
  void DrawLine(std::string_view text);
  void ClearProgress();

 private:
  bool canAsk_;
  bool showsProgress_;
  bool drawn_ = false;
};

}  // namespace qb
