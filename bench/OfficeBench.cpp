#include <fmt/format.h>
#include <glib.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/SecondLine.h"
#include "editors/EditorQuestions.h"
#include "editors/libreoffice/OfficeBridge.h"
#include "foundation/gRvdFile.h"
#include "support/WorkflowTest.h"
#include "workflow/DocumentCommands.h"
#include "workflow/OpenPackage.h"
#include "workflow/Settings.h"

// bench_office: opens a source and a translation in a warm office through the bridge and, in turns, lets the
// same office open them by itself; saves a document that is out; lets the timer tick with a document out.
// Starts the office at the first document, and ahead of it with the package.
// Prints milliseconds and bytes as one line of JSON. Needs a display.
namespace qb {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr int kPairs = 5;
constexpr int kStarts = 3;
constexpr int kSaves = 7;
constexpr int kFirstTicks = 1000;  // what is kept once is kept by then
constexpr int kTicks = 10000;
constexpr std::chrono::seconds kLongest{10};
constexpr std::chrono::milliseconds kPause{10};
constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";
constexpr std::string_view kSource = R"(\pkg\src\text.doc)";
constexpr std::string_view kTranslation = R"(\pkg\dst\text.doc)";

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

long long HeldBytes() {
  const struct mallinfo2 information = mallinfo2();
  return static_cast<long long>(information.uordblks + information.hblkhd);
}

/// The running program on a drive of its own, with the real office, which is warm.
class OfficeSession : public WorkflowTest {
 public:
  OfficeSession() {
    MakeFolder(R"(\bin)");
    std::filesystem::create_symlink(QB_OFFICE_HELPER, Native(R"(\bin\quillbank-office)"));
    std::string text = SmallPackage();
    ReplaceAll(text, "styles.css", "text.doc");
    ReplaceAll(text, "PROCESS=CSS", "PROCESS=");
    ReplaceAll(text, "DOCUMENT_FORMAT=CSS", "DOCUMENT_FORMAT=DOC");
    Write(kPackage, text);
    CopySample("src", kSource);
    CopySample("dst", kTranslation);
    office_ = Office::Make({R"(\bin\quillbank-office)", Native(R"(\profiles)").string()});
    gEditorQuestions.newDocumentBridge = [this] { return MakeOfficeBridge(office_); };
    Start(kPackage);
    if (gTraceOn) ToggleTrace();
    PairThroughBridge();
    for (int start = 0; start < kStarts; ++start) {
      colds_.push_back(PairWithStart());
      aheads_.push_back(PairAfterStart(2 * colds_.back()));
    }
    line_ = std::make_unique<SecondLine>(Native(R"(\profiles\office-1)").string());
  }
  ~OfficeSession() override {
    line_.reset();
    office_->End();
  }

  /// Seconds for a pair through the bridge.
  double PairThroughBridge() {
    const auto bridge = MakeOfficeBridge(office_);
    const auto group = AskFor<IBridgeGroup>(bridge->Groups()->Add(kTranslation));
    const auto start = SteadyClock::now();
    group->Documents()->Open(kSource, bridge_mode::kReadOnly);
    group->Documents()->Open(kTranslation, bridge_mode::kWritable);
    const std::chrono::duration<double> took = SteadyClock::now() - start;
    group->Close();
    return took.count();
  }
  /// Seconds, at best, for the first pair of an office that is not started before.
  double ColdPair() const { return *std::min_element(colds_.begin(), colds_.end()); }
  /// Seconds, at best, for the first pair of an office that is started with the package.
  double PairAhead() const { return *std::min_element(aheads_.begin(), aheads_.end()); }
  /// Seconds, at best, that the package opens later for that.
  double Delay() const { return *std::min_element(delays_.begin(), delays_.end()); }
  /// Seconds for the office to open it by itself.
  double PairAlone() { return line_->OpenPair(Native(kSource).string(), Native(kTranslation).string()); }

  void Translate() {
    SelectNode("DOC1");
    if (!QbtTranslate()) throw std::logic_error("The document did not open");
  }
  /// Seconds from the office's word of a save to the links in the package.
  double SaveIntoPackage() {
    gPxfFile->WriteHyperlinks(1, 1, std::make_unique<Collection<std::string>>().get());
    const auto told = line_->Save(Native(kTranslation).string());
    while (CountOfLinks() != "1") {
      if (SteadyClock::now() - told > kLongest) throw std::logic_error("The save did not reach the package");
      g_main_context_iteration(nullptr, FALSE);
    }
    return std::chrono::duration<double>(SteadyClock::now() - told).count();
  }
  /// The bytes that the program holds more after so many ticks.
  long long HeldByTicks() {
    Ticks(kFirstTicks);
    const long long before = HeldBytes();
    Ticks(kTicks);
    return HeldBytes() - before;
  }

 private:
  void TestBody() override {}
  void CopySample(const std::string& side, std::string_view path) {
    std::filesystem::create_directories(Native(path).parent_path());
    std::filesystem::copy_file(QB_EXAMPLES "/translation/" + side + "/inbetriebnahme/inbetriebnahme.doc",
                               Native(path));
  }
  double PairWithStart() {
    office_->End();
    return PairThroughBridge();
  }
  double SecondsToOpenPackage() {
    const auto start = SteadyClock::now();
    QbtOpen(kPackage);
    return std::chrono::duration<double>(SteadyClock::now() - start).count();
  }
  /// The user looks at the package for so many seconds before a document goes out.
  double PairAfterStart(double seconds) {
    office_->End();
    gEditorQuestions.prepareOffice = nullptr;
    const double alone = SecondsToOpenPackage();
    gEditorQuestions.prepareOffice = [this] { office_->Prepare(); };
    delays_.push_back(SecondsToOpenPackage() - alone);
    const auto start = SteadyClock::now();
    while (std::chrono::duration<double>(SteadyClock::now() - start).count() < seconds) {
      g_main_context_iteration(nullptr, FALSE);
      std::this_thread::sleep_for(kPause);
    }
    return PairThroughBridge();
  }
  static std::string CountOfLinks() { return Entry(kPackage, Entry(kPackage, "1", "1ADDSECTION"), "COUNT"); }
  void Ticks(int count) {
    for (int tick = 0; tick < count; ++tick) {
      Tick();
      g_main_context_iteration(nullptr, FALSE);
    }
  }

  std::shared_ptr<Office> office_;
  std::unique_ptr<SecondLine> line_;
  std::vector<double> colds_;
  std::vector<double> aheads_;
  std::vector<double> delays_;
};

void Measure() {
  OfficeSession session;
  std::vector<double> bridge;
  std::vector<double> alone;
  for (int pair = 0; pair < kPairs; ++pair) {
    alone.push_back(session.PairAlone());
    bridge.push_back(session.PairThroughBridge());
  }
  session.Translate();
  std::vector<double> saves;
  for (int save = 0; save < kSaves; ++save) saves.push_back(session.SaveIntoPackage());
  fmt::print(R"({{"bridge": {:.1f}, "alone": {:.1f}, "ahead": {:.1f}, "cold": {:.1f}, "delay": {:.1f}, )"
             R"("save": {:.1f}, "ticks": {}}})"
             "\n",
             1000 * Median(bridge), 1000 * Median(alone), 1000 * session.PairAhead(),
             1000 * session.ColdPair(), 1000 * session.Delay(), 1000 * Median(saves), session.HeldByTicks());
}

}  // namespace
}  // namespace qb

int main() {
  qb::Measure();
}
