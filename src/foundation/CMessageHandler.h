#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace qb {

/// Numbers messages, shows them in boxes and appends them to the protocol file beside the package.
class CMessageHandler {
 public:
  /// Writes the protocol's header.
  CMessageHandler();
  CMessageHandler(const CMessageHandler&) = delete;
  CMessageHandler& operator=(const CMessageHandler&) = delete;
  /// Writes the protocol's footer.
  ~CMessageHandler();

  /// Messages of level 2 since creation.
  std::int16_t GetNumberOfErrors() const { return errorCount_; }

  /// Level 0 message, 1 warning, any other error. An empty text reports the pending error. `show` brings up a
  /// box; `ask` makes it a question and takes the answer: true for yes. The line goes to the protocol in
  /// every case.
  void Message(std::string_view text, std::int16_t level, bool show, bool& ask);
  void Message(std::string_view text, std::int16_t level, bool show, bool&& ask) {
    bool question = ask;
    Message(text, level, show, question);
  }

 private:
  void WriteProtocol(std::string_view text);
  std::string FormatLine(std::string_view text, std::string_view levelWord) const;

  bool firstUse_ = true;
  std::int16_t messageCount_ = 0;
  std::int16_t errorCount_ = 0;
  std::string lastLine_;
  bool lastShow_ = false;
};

/// The one message handler; replaced when a package is opened.
extern std::unique_ptr<CMessageHandler> gMessageHandler;

/// Answers the directory of the open package, empty for a package object without a file. Absent: there is no
/// package object, and the protocol goes to the program's directory. Set by the room that owns the package.
struct ProtocolDirectoryQuestion {
  std::function<bool()> packageExists;
  std::function<std::string()> packageDirectory;
};
extern ProtocolDirectoryQuestion gProtocolDirectory;

}  // namespace qb
