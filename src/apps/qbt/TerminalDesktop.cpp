#include "apps/qbt/TerminalDesktop.h"

#include <fmt/format.h>

#include <utility>

#include "apps/qbt/ExitCode.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr int kButtonBits = 15;
constexpr int kIconBits = 112;

/// A box's text on lines of its own. A message carries its level in a column in front, which a colon
/// replaces.
std::string Lines(std::string_view text) {
  std::string lines;
  for (const std::string& line : Split(text, "\n")) {
    const std::string_view trimmed = Trim(std::string_view(line).substr(0, line.find('\r')));
    const std::size_t gap = trimmed.find("  ");
    const bool isColumn = gap != std::string_view::npos && trimmed.find(' ') == gap;
    if (!lines.empty()) lines += '\n';
    lines += isColumn ? fmt::format("{}: {}", trimmed.substr(0, gap), Trim(trimmed.substr(gap)))
                      : std::string(trimmed);
  }
  return lines;
}

int NoOf(int style) {
  return (style & kButtonBits) == box::kYesNoCancel ? box::kCancel : box::kNo;
}

}  // namespace

int CommandOutcome::ExitCode() const {
  if (unanswered) return exitcode::kUnanswered;
  if (failed) return exitcode::kUnreadable;
  return refused ? exitcode::kRefused : exitcode::kFine;
}

std::string TerminalBoxes::WithSubject(std::string_view text) const {
  return Subject.empty() ? Lines(text) : Subject + ": " + Lines(text);
}

int TerminalBoxes::Show(const MessageBoxRequest& request) {
  if ((request.style & kButtonBits) != box::kOkOnly) return Ask(request);
  if (!SuccessText.empty() && request.text == SuccessText) return box::kOk;
  terminal_.Tell(WithSubject(request.text));
  const int icon = request.style & kIconBits;
  if (icon == box::kStop) Outcome.failed = true;
  if (icon != box::kInformation) Outcome.refused = true;
  return box::kOk;
}

int TerminalBoxes::Ask(const MessageBoxRequest& request) {
  if (Decide) {
    if (const std::optional<int> decided = Decide(request)) return *decided;
  }
  const std::string question = WithSubject(request.text);
  if (yes_) return box::kYes;
  if (!terminal_.CanAsk()) {
    terminal_.Tell(question + "\nThis needs an answer: run qbt at a terminal, or with --yes.");
    Outcome.unanswered = true;
    return NoOf(request.style);
  }
  const bool noIsDefault = (request.style & box::kSecondButtonDefault) != 0;
  while (true) {
    const std::optional<std::string> line =
        terminal_.Ask(fmt::format("{} {} ", Printable(question), noIsDefault ? "[y/N]" : "[Y/n]"));
    if (!line) {
      Outcome.unanswered = true;
      return NoOf(request.style);
    }
    const std::string answer = LowerCase(Trim(*line));
    if (answer == "y" || answer == "yes" || (answer.empty() && !noIsDefault)) return box::kYes;
    if (answer == "n" || answer == "no" || answer.empty()) {
      Outcome.refused = true;
      return box::kNo;
    }
  }
}

bool TerminalFileDialogs::GetOpenFileName(OpenFileRecord& record) {
  if (Choices.empty()) return false;
  record.fileName = std::move(Choices.front());
  Choices.pop_front();
  record.fileTitle = record.fileName.substr(record.fileName.rfind('\\') + 1);
  return true;
}

void TerminalClipboard::SetText(std::string_view text, std::int16_t) {
  terminal_.Write(std::string(text) + '\n');
}

SessionRegistry::SessionRegistry(std::unique_ptr<Registry> stored,
                                 const std::vector<std::pair<std::string, std::string>>& overrides)
    : stored_(std::move(stored)) {
  for (const auto& [name, value] : overrides) {
    entries_.push_back({Hive::kCurrentUser, std::string(kSettingsKey), name, value, true});
  }
}

SessionRegistry::Entry* SessionRegistry::Find(Hive hive, std::string_view key, std::string_view valueName) {
  for (Entry& entry : entries_) {
    if (entry.hive == hive && EqualIgnoringCase(entry.key, key) &&
        EqualIgnoringCase(entry.valueName, valueName)) {
      return &entry;
    }
  }
  return nullptr;
}

std::optional<RegistryValue> SessionRegistry::Query(Hive hive, std::string_view key,
                                                    std::string_view valueName) {
  const Entry* entry = Find(hive, key, valueName);
  if (entry == nullptr) return stored_->Query(hive, key, valueName);
  RegistryValue value;
  if (!entry->text.empty()) value.data = entry->text + '\0';
  return value;
}

long SessionRegistry::SetText(Hive hive, std::string_view key, std::string_view valueName,
                              std::string_view text) {
  if (Entry* entry = Find(hive, key, valueName)) {
    if (!entry->isFixed) entry->text = text;
  } else {
    entries_.push_back({hive, std::string(key), std::string(valueName), std::string(text), false});
  }
  return 0;
}

}  // namespace qb
