#include "foundation/CMessageHandler.h"

#include <fmt/format.h>

#include <limits>

#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "foundation/modMultiLanguage.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {

std::unique_ptr<CMessageHandler> gMessageHandler;
ProtocolDirectoryQuestion gProtocolDirectory;

namespace {

constexpr std::size_t kRuleWidth = 79;

struct LevelLook {
  std::string word;
  int style;
};

LevelLook LookOf(std::int16_t level) {
  if (level == 0) {
    return {QBL_LText("QB.QBTRANSLAT.CMESSAGEHAND.000.MESSAGE.T.00004|Message"), box::kInformation};
  }
  if (level == 1) {
    return {QBL_LText("QB.QBTRANSLAT.CMESSAGEHAND.000.MESSAGE.T.00005|Warning"), box::kExclamation};
  }
  return {QBL_LText("QB.QBTRANSLAT.CMESSAGEHAND.000.MESSAGE.T.00006|Error"), box::kStop};
}

/// Left-aligned in `width` columns; a text that fills them is kept whole and gets one blank behind it.
std::string Column(std::string_view text, std::size_t width) {
  if (CharacterCount(text) < width) return PadRight(text, width);
  return std::string(text) + ' ';
}

std::string DescriptionOf(const PendingError& error) {
  std::string text = std::to_string(error.Number);
  if (!error.Description.empty()) text += ": " + error.Description;
  if (!error.Source.empty()) text += ' ' + error.Source;
  return text;
}

/// The counts are 16 bits wide and stay at their greatest value.
void Increment(std::int16_t& count) {
  if (count < std::numeric_limits<std::int16_t>::max()) ++count;
}

/// Where the protocol stands; empty if writing would go through a link to another place.
std::string ProtocolPath() {
  FileSystem& files = *ThePlatform().files;
  const bool packageExists = gProtocolDirectory.packageExists && gProtocolDirectory.packageExists();
  const std::string directory =
      packageExists ? gProtocolDirectory.packageDirectory() : files.ProgramDirectory();
  const std::string path = JoinFile(directory, R"(.\Protocol.txt)");
  // Packages come from strangers: their folder must not lead the protocol into a file elsewhere.
  const std::string folder = files.Resolved(JoinFile(directory, {}));
  const bool inFolder = EqualIgnoringCase(files.Resolved(path), JoinFile(folder, "Protocol.txt"));
  return inFolder ? path : std::string{};
}

}  // namespace

CMessageHandler::CMessageHandler() {
  WriteProtocol(fmt::format("{:=<{}}\r\n{} {}\r\n", "", kRuleWidth, kProductName, ProductVersion()));
}

CMessageHandler::~CMessageHandler() {
  Attempt([this] {
    const std::string finished =
        QBL_LText("QB.QBTRANSLAT.CMESSAGEHAND.000.CLASS_TERMINATE.T.00001|Application finished execution.");
    const std::string occurred =
        QBL_LText("QB.QBTRANSLAT.CMESSAGEHAND.000.CLASS_TERMINATE.T.00002|errors occurred.");
    WriteProtocol(fmt::format("{:-<{}}\r\n{} {} {}\r\n{:=<{}}\r\n\r\n", "", kRuleWidth, finished, errorCount_,
                              occurred, "", kRuleWidth));
  });
  Err.Clear();
}

void CMessageHandler::Message(std::string_view text, std::int16_t level, bool show, bool& ask) {
  const PendingError pending = Err;  // looking up a wording clears it
  Increment(messageCount_);
  if (level == 2) Increment(errorCount_);  // level 3 and above are no errors here, though shown as such
  std::string line;
  int style = box::kStop;
  if (text.empty()) {
    line = FormatLine(DescriptionOf(pending),
                      QBL_LText("QB.QBTRANSLAT.CMESSAGEHAND.000.MESSAGE.T.00003|Internal Error"));
  } else {
    const std::string message(text);  // may be a text of the pending error
    const LevelLook look = LookOf(level);
    style = look.style;
    line = FormatLine(message, look.word);
  }
  lastLine_ = line;
  lastShow_ = show;
  if (show) {
    const std::size_t blank = line.find(' ');
    MessageBoxRequest request;
    request.text = blank == std::string::npos ? line : line.substr(blank + 1);
    request.style = ask ? box::kQuestion | box::kYesNo : style;
    request.helpFile = pending.HelpFile;
    request.helpContext = pending.HelpContext;
    const int answer = ThePlatform().messageBoxes->Show(request);
    if (ask) ask = answer != box::kNo;
  }
  WriteProtocol(line);
}

void CMessageHandler::WriteProtocol(std::string_view text) {
  Attempt([&] {
    const std::string path = ProtocolPath();
    if (path.empty()) return;
    TextCodec& codec = *ThePlatform().codec;
    const auto file = ThePlatform().files->OpenForAppending(path);
    file->Write(codec.Encode(std::string(text) + "\r\n", codec.SystemCodePage()));
    file->Flush();
  });
  Err.Clear();
}

std::string CMessageHandler::FormatLine(std::string_view text, std::string_view levelWord) const {
  return '#' + Column(std::to_string(messageCount_), 3) + Column(levelWord, 16) + Column(text, 51);
}

}  // namespace qb
