#include "support/ScriptedBoxes.h"

#include <utility>

namespace qb {
namespace {

constexpr int kButtonBits = 15;

template <class Element>
Element TakeFront(std::deque<Element>& queue) {
  Element front = std::move(queue.front());
  queue.pop_front();
  return front;
}

}  // namespace

void ScriptedBoxes::AnswerNext(int answer, std::function<void()> whileUp) {
  answers_.push_back({answer, std::move(whileUp)});
}

void ScriptedBoxes::WhileNextNotice(std::function<void()> whileUp) {
  notices_.push_back(std::move(whileUp));
}

int ScriptedBoxes::Show(const MessageBoxRequest& request) {
  shown_.push_back(request);
  if ((request.style & kButtonBits) == box::kOkOnly) {
    if (!notices_.empty()) TakeFront(notices_)();
    return box::kOk;
  }
  if (answers_.empty()) {
    unexpected_.push_back(request);
    return box::kNo;
  }
  const Answer answer = TakeFront(answers_);
  if (answer.whileUp) answer.whileUp();
  return answer.answer;
}

std::vector<std::string> ScriptedBoxes::Texts() const {
  std::vector<std::string> texts;
  for (const MessageBoxRequest& request : shown_) texts.push_back(request.text);
  return texts;
}

void ScriptedBoxes::Forget() {
  shown_.clear();
  unexpected_.clear();
}

void ScriptedFileDialogs::AnswerNext(Answer answer) {
  answers_.push_back(std::move(answer));
}

void ScriptedFileDialogs::ChooseNext(std::string path) {
  AnswerNext([path = std::move(path)](OpenFileRecord& record) {
    record.fileName = path;
    record.fileTitle = path.substr(path.find_last_of("\\/") + 1);
    return true;
  });
}

void ScriptedFileDialogs::CancelNext() {
  AnswerNext([](OpenFileRecord&) { return false; });
}

bool ScriptedFileDialogs::GetOpenFileName(OpenFileRecord& record) {
  shown_.push_back(record);
  if (answers_.empty()) return false;
  return TakeFront(answers_)(record);
}

}  // namespace qb
