#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Dialogs.h"

namespace qb {

/// Message boxes that nobody sees: questions are answered from a script, and every box is recorded.
class ScriptedBoxes : public MessageBoxes {
 public:
  /// Answers the next question (a box with more than an OK button) that has no answer yet. `whileUp` runs
  /// while it is up. A question without an answer gets "No" and is recorded as unexpected.
  void AnswerNext(int answer, std::function<void()> whileUp = {});

  /// Runs `whileUp` while the next box with only an OK button is up. Such a box always answers OK.
  void WhileNextNotice(std::function<void()> whileUp);

  int Show(const MessageBoxRequest& request) override;

  /// Every box in the order of its appearance.
  const std::vector<MessageBoxRequest>& Shown() const { return shown_; }
  /// The texts alone.
  std::vector<std::string> Texts() const;
  /// Questions that came without an answer in the script.
  const std::vector<MessageBoxRequest>& UnexpectedQuestions() const { return unexpected_; }
  /// Answers that no question has asked for so far.
  std::size_t AnswersLeft() const { return answers_.size(); }
  /// Forgets what was shown, the unexpected questions included. The script stays.
  void Forget();

 private:
  struct Answer {
    int answer;
    std::function<void()> whileUp;
  };

  std::deque<Answer> answers_;
  std::deque<std::function<void()>> notices_;
  std::vector<MessageBoxRequest> shown_;
  std::vector<MessageBoxRequest> unexpected_;
};

/// Open-file dialogs that are answered from a script; without an answer they are cancelled.
class ScriptedFileDialogs : public FileDialogs {
 public:
  /// What a scripted dialog does with its record; the result is whether a file was chosen.
  using Answer = std::function<bool(OpenFileRecord&)>;

  void AnswerNext(Answer answer);
  /// The user chooses `path`; the title becomes its name without the directory.
  void ChooseNext(std::string path);
  void CancelNext();

  bool GetOpenFileName(OpenFileRecord& record) override;

  /// Every dialog as it was asked for.
  const std::vector<OpenFileRecord>& Shown() const { return shown_; }

 private:
  std::deque<Answer> answers_;
  std::vector<OpenFileRecord> shown_;
};

/// A clipboard that keeps what it was given.
class RecordingClipboard : public Clipboard {
 public:
  struct Entry {
    std::string text;
    std::int16_t format = 0;
  };

  void SetText(std::string_view text, std::int16_t format) override {
    entries.push_back({std::string(text), format});
  }

  std::vector<Entry> entries;
};

/// A mouse pointer that keeps the order of its shapes.
class RecordingPointer : public MousePointer {
 public:
  void Set(int pointer) override { shapes.push_back(pointer); }

  std::vector<int> shapes;
};

}  // namespace qb
