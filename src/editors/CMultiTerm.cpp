#include "editors/CMultiTerm.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <vector>

#include "foundation/EventLoop.h"
#include "foundation/gRvdFile.h"
#include "foundation/grvdRegistry.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "ui/DDE.h"
#include "ui/Forms.h"

namespace qb {

std::shared_ptr<CMultiTerm> gMultiTerm;

namespace {

constexpr std::string_view kClass = "CMultiTerm";
constexpr std::string_view kEnvironmentKey = R"(Software\TRADOS\MTWPlus\Environment)";
constexpr std::string_view kProgramFile = R"(C:\Program Files\TRADOS\Team\MTWPLUS\MtwpE.exe)";
constexpr std::string_view kWindowClass = "MT4WIN";
constexpr std::string_view kWindowTitle = "TRADOS MultiTerm";
constexpr std::string_view kLinkTopic = "MT4WIN|mt_init";
constexpr std::string_view kDone = "mt_ok";
constexpr std::string_view kNothing = "mt_no";
constexpr std::string_view kLineEnd = "\r\n";
constexpr double kSecondsOfDay = 86400;
constexpr double kPatience = 20;  // seconds
constexpr std::size_t kBufferSize = 4096;

LinkedTextBox& Link() {
  return Default<DDE>().DDEResult;
}

/// The answer to an item in the conversation as it stands.
const std::string& Ask(std::string_view item) {
  LinkedTextBox& link = Link();
  link.LinkItem = item;
  link.Text = std::string();
  link.LinkRequest();
  return link.Text;
}

/// The answer to an item, in a new conversation if none stands.
const std::string& AskLinked(std::string_view item) {
  Link().SetLinkMode(LinkedTextBox::kLinkManual);
  return Ask(item);
}

void LetEventsRun() {
  if (gProcessPendingEvents) gProcessPendingEvents();
}

}  // namespace

CMultiTerm::~CMultiTerm() {
  const PendingError pending = Err;
  Quit();
  Err = pending;
}

bool CMultiTerm::FindProgram() {
  strProgram = GetRegistryString(Hive::kCurrentUser, kEnvironmentKey, "InstallPath-Team", {});
  if (strProgram.empty()) {
    strProgram = "0";
    return false;
  }
  strProgram = JoinFile(strProgram, FileNameOf(kProgramFile));
  return FileExists(strProgram, 0);
}

bool CMultiTerm::IsRunning() {
  return ThePlatform().windows->Find(kWindowClass, std::nullopt) != 0;
}

void CMultiTerm::Fail(long number, std::string_view why) {
  if (objTrace != nullptr) objTrace->Trace(1, kClass, "Init", why);
  throw RuntimeError(number, "CMultiTerm::Init", std::string(why));
}

bool CMultiTerm::Init() {
  if (!FindProgram()) {
    bWasRunning = IsRunning();  // one that runs all the same is the user's, and `Quit` leaves it alone
    Fail(kProgramNotFound, "Could not execute TRADOS MultiTerm; please launch manually");
  }
  bWasRunning = IsRunning();
  if (!bWasRunning) vntProcess = ThePlatform().shell->Start(strProgram);
  if (!IsRunning()) return false;
  Connect();
  if (Err.Number != 0) Fail(kNoConnection, "Could not open connection to TRADOS MultiTerm");
  return true;
}

void CMultiTerm::Connect() {
  Link().LinkTopic = kLinkTopic;
  AskLinked("");
  Ask("mt_hide");
  Link().SetLinkMode(LinkedTextBox::kLinkNone);
  AskLinked("mt_hitlist_off");
}

bool CMultiTerm::WaitUntilReady() {
  Clock& clock = *ThePlatform().clock;
  const double start = clock.SecondsSinceMidnight();
  while (true) {
    const double now = clock.SecondsSinceMidnight();
    // Past midnight the sum is always a whole day, which ends the wait at once: stays so.
    const double waited = now < start ? (kSecondsOfDay - now) + now : now - start;
    const bool timedOut = waited > kPatience;
    // An answer that comes when the time is over counts as none: stays so.
    if (Attempt([this] { Ask("mt_getfilename#" + strBuffer); })) return !timedOut;
    Err.Clear();
    LetEventsRun();
    if (timedOut) return false;
  }
}

bool CMultiTerm::Load(std::string_view strFile) {
  Err.Clear();
  if (!WaitUntilReady()) return false;
  strBuffer.assign(kBufferSize, ' ');
  const auto shortName = ThePlatform().files->ShortPathName(strFile);
  if (!shortName) {
    Quit();
    return false;
  }
  strBuffer = Trim(*shortName);
  if (AskLinked("mt_open#" + strBuffer) == kDone) return true;
  if (!bWasRunning) Quit();
  return false;
}

void CMultiTerm::Lookup(std::string_view strTerm, std::string& strResult) {
  if (LowerCase(FirstCharacters(strTerm, 3)) == "mt_") return;  // a term must not be taken for a command
  AskLinked(strTerm);
  do {
    LetEventsRun();
  } while (AskLinked("mt_hitlist_done") != kDone);
  const std::string hits = AskLinked("mt_hitlist_get");
  if (hits == kNothing) {
    strResult.clear();
    return;
  }
  const std::vector<std::string> lines = Split(hits, kLineEnd);
  // The first hit is passed over, and an empty place ends the list: stays so.
  std::vector<std::string> results(lines.size());
  for (std::size_t i = 1; i < lines.size(); ++i) {
    results[i - 1] = lines[i] + '\t';
    if (AskLinked(lines[i]) == kNothing) continue;
    const std::string& target = AskLinked("mt_target");
    if (target != kNothing) results[i - 1] += target;
  }
  strResult = fmt::format("{}", fmt::join(results, kLineEnd));
}

void CMultiTerm::Quit() {
  Attempt([this] {
    if (!IsRunning() || bWasRunning) return;
    Link().SetLinkMode(LinkedTextBox::kLinkNone);
    ThePlatform().windows->SendKeys(kWindowTitle, "%{F4}");
  });
  Err.Clear();
  vntProcess = std::int32_t{0};
}

}  // namespace qb
