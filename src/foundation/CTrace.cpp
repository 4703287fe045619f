#include "foundation/CTrace.h"

#include <algorithm>
#include <iterator>

#include "foundation/gRvdFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {

std::unique_ptr<CTrace> gTrace;

namespace {

constexpr std::string_view kViewerTitle = "ORB Trace Log Viewer";
constexpr std::size_t kComputerNameWidth = 9;
constexpr std::uintptr_t kTraceRecord = 0;
constexpr std::uintptr_t kLevelRequest = 1;

void AppendField(std::u16string& record, std::string_view field) {
  while (!field.empty()) {
    const char32_t character = TakeCharacter(field);
    if (character < 0x10000) {
      record.push_back(static_cast<char16_t>(character));
    } else {
      record.push_back(static_cast<char16_t>(0xD7C0U + (character >> 10U)));
      record.push_back(static_cast<char16_t>(0xDC00U + (character & 0x3FFU)));
    }
  }
  record.push_back(u'\0');
}

bool IsRelative(std::string_view fileName) {
  return !fileName.starts_with('\\') && fileName.substr(0, 3).find(R"(:\)") != 1;
}

/// Whether a link stands in the file's place: the program may have been started in the folder of a package,
/// and those come from strangers.
bool LeadsElsewhere(std::string_view fileName) {
  FileSystem& files = *ThePlatform().files;
  const std::string folder = files.Resolved(JoinFile(files.CurrentDirectory(), DirectoryOf(fileName)));
  return !EqualIgnoringCase(files.Resolved(fileName), JoinFile(folder, FileNameOf(fileName)));
}

}  // namespace

CTrace::CTrace() : viewer_(ThePlatform().windows->Find(std::nullopt, kViewerTitle)) {
  if (viewer_ == 0) return;
  const std::int64_t reply = ThePlatform().windows->SendCopyData(viewer_, kLevelRequest, std::nullopt);
  Level = static_cast<std::int16_t>(reply & 0xFFFF);
  Active = true;
}

CTrace::~CTrace() {
  CloseLog();
}

void CTrace::OpenLog(std::string_view fileName) {
  logUsable_ = false;
  if (fileName.empty()) return;
  logOpen_ = Attempt([&] {
    file_.reset();  // the file may be the same
    if (IsRelative(fileName) && LeadsElsewhere(fileName)) RaiseAbout(failure::kPermissionDenied, fileName);
    file_ = ThePlatform().files->OpenForWriting(fileName);
    logUsable_ = true;
  });
  Err.Clear();
}

void CTrace::CloseLog() {
  file_.reset();
  logOpen_ = false;
}

void CTrace::Trace(std::int16_t level, std::string_view module, std::string_view procedure,
                   std::string_view text) {
  if (!Wants(level)) return;
  if (logOpen_ && logUsable_) WriteLine(module, procedure, text);
  if (viewer_ != 0) SendToViewer(module, procedure, text);
}

void CTrace::WriteLine(std::string_view module, std::string_view procedure, std::string_view text) {
  const DateTime now = ThePlatform().clock->LocalNow();
  if (now != timeOfText_) {
    timeOfText_ = now;
    timeText_ = fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02} ", now.year, now.month, now.day, now.hour,
                            now.minute, now.second);
  }
  const std::string computer = ThePlatform().environment->Variable("COMPUTERNAME");
  line_ = timeText_;
  line_ += PadRight(FirstCharacters(computer, kComputerNameWidth), kComputerNameWidth);
  line_.append(module).append(".").append(procedure).append(": ").append(text).append("\r\n");
  if (!IsAscii(line_)) {
    TextCodec& codec = *ThePlatform().codec;
    line_ = codec.Encode(line_, codec.SystemCodePage());
  }
  file_->Write(line_);
  file_->Flush();  // a crash of the program must lose no line
}

void CTrace::SendToViewer(std::string_view module, std::string_view procedure, std::string_view text) {
  std::u16string record;
  // The record names the procedure before the module, unlike the line in the file.
  for (const std::string_view field :
       {std::string_view("1.0"), text, procedure, module, std::string_view("QB Translator"),
        std::string_view(App), std::string_view(), std::string_view()}) {
    AppendField(record, field);
  }
  ThePlatform().windows->SendCopyData(viewer_, kTraceRecord, record);
}

void TracePendingError(std::string_view module, std::string_view procedure) {
  const PendingError error = Err;
  try {
    Trace(1, module, procedure, "err: '{}' '{}'", error.Number, error.Description);
  } catch (const RuntimeError&) {
    // The failure that is being handled counts, not that of the trace.
  }
  Err = error;
}

TracedProcedure::~TracedProcedure() {
  if (gTrace == nullptr || !gTrace->Wants(2)) return;
  const PendingError pending = Err;
  // A destructor must not raise: a lost leave mark is passed over, and the next line raises the same failure.
  Attempt([this] { Trace(2, module_, procedure_, "<-"); });
  Err = pending;
}

}  // namespace qb
