#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/qbt/Terminal.h"
#include "platform/Platform.h"

namespace qb {

/// What became of the commands since it was last cleared.
struct CommandOutcome {
  bool refused = false;     ///< a box said why something was not done, or a question was answered with no
  bool failed = false;      ///< a box told of an error
  bool unanswered = false;  ///< a question found nobody to answer it

  bool IsFine() const { return !refused && !failed && !unanswered; }
  int ExitCode() const;
};

/// Boxes as lines on the error stream, and questions as questions at the terminal.
class TerminalBoxes : public MessageBoxes {
 public:
  /// With `yes`, every question is answered with yes.
  TerminalBoxes(Terminal& terminal, bool yes) : terminal_(terminal), yes_(yes) {}

  /// Answers a question before anybody is asked; nothing leaves it to them.
  std::function<std::optional<int>(const MessageBoxRequest&)> Decide;
  /// The text of a box that only tells of success.
  std::string SuccessText;
  /// What the boxes are about; it is said in front of them.
  std::string Subject;

  CommandOutcome Outcome;

  int Show(const MessageBoxRequest& request) override;

 private:
  int Ask(const MessageBoxRequest& request);
  std::string WithSubject(std::string_view text) const;

  Terminal& terminal_;
  bool yes_;
};

/// A file chooser that gives what the command line named.
class TerminalFileDialogs : public FileDialogs {
 public:
  /// The answers, as kept paths, one for each time that the chooser opens. Without one it is cancelled.
  std::deque<std::string> Choices;

  bool GetOpenFileName(OpenFileRecord& record) override;
};

/// A clipboard that writes the text as a result: a pipe can take it from there.
class TerminalClipboard : public Clipboard {
 public:
  explicit TerminalClipboard(Terminal& terminal) : terminal_(terminal) {}
  void SetText(std::string_view text, std::int16_t format) override;

 private:
  Terminal& terminal_;
};

/// A terminal has no mouse pointer to shape.
class NoMousePointer : public MousePointer {
 public:
  void Set(int) override {}
};

/// The settings as they are stored; what the program stores in them lasts for this process only, so that the
/// window finds its own settings again. `overrides` are settings of this process.
class SessionRegistry : public Registry {
 public:
  SessionRegistry(std::unique_ptr<Registry> stored,
                  const std::vector<std::pair<std::string, std::string>>& overrides);

  std::optional<RegistryValue> Query(Hive hive, std::string_view key, std::string_view valueName) override;
  long SetText(Hive hive, std::string_view key, std::string_view valueName, std::string_view text) override;

 private:
  struct Entry {
    Hive hive;
    std::string key;
    std::string valueName;
    std::string text;
    bool isFixed = false;
  };
  Entry* Find(Hive hive, std::string_view key, std::string_view valueName);

  std::unique_ptr<Registry> stored_;
  std::vector<Entry> entries_;
};

}  // namespace qb
