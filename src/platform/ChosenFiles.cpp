#include "platform/ChosenFiles.h"

#include "platform/Platform.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::size_t kNamesInBox = 10;

bool HoldsBlank(std::string_view text) {
  return text.find(' ') != std::string_view::npos;
}

}  // namespace

std::string JoinedNames(std::string_view directory, const std::vector<std::string>& names) {
  std::string text(directory);
  for (const std::string& name : names) text += " " + name;
  return text;
}

std::vector<std::string> NamesThatCannotBeJoined(std::string_view directory,
                                                 const std::vector<std::string>& names) {
  if (HoldsBlank(directory)) return names;
  std::vector<std::string> refused;
  std::size_t length = CharacterCount(directory);
  for (const std::string& name : names) {
    length += 1 + CharacterCount(name);
    if (HoldsBlank(name) || length > kLongestChoice) refused.push_back(name);
  }
  return refused;
}

void TellNamesThatCannotBeJoined(std::string_view directory, const std::vector<std::string>& names) {
  std::string text = "These files of '" + std::string(directory) + "' cannot be taken together:\r\n\r\n";
  for (std::size_t i = 0; i < names.size() && i < kNamesInBox; ++i) text += names[i] + "\r\n";
  if (names.size() > kNamesInBox) text += "...\r\n";
  text +=
      "\r\nSeveral files at once must have no blank in their names or their folder, and must not be too "
      "many.";
  MessageBoxRequest request;
  request.text = text;
  request.style = box::kExclamation;
  ThePlatform().messageBoxes->Show(request);
}

}  // namespace qb
