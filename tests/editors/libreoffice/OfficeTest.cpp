#include "OfficeTest.h"

#include <glib.h>

#include <chrono>
#include <cstdlib>
#include <fstream>

#include "editors/EditorQuestions.h"
#include "foundation/gRvdFile.h"

namespace qb {
namespace {

constexpr std::chrono::seconds kLongest{60};

}  // namespace

OfficeTest::OfficeTest() {
  MakeFolder(R"(\bin)");
  MakeFolder(R"(\scripts)");
  MakeFolder(R"(\profiles)");
  scripts_ = Native(R"(\scripts)");
  profiles_ = Native(R"(\profiles)");
  std::filesystem::create_symlink(QB_FAKE_OFFICE_PROGRAM, Native(R"(\bin\quillbank-office)"));
  setenv("QB_FAKE_OFFICE", scripts_.c_str(), 1);
  limits_->answer = kLongest;
  limits_->end = kLongest;
  limits_->patience = kLongest;
  for (const char* path : {R"(\pkg\a.doc)", R"(\pkg\b.doc)", R"(\pkg\c.doc)", R"(\pkg\d.ppt)"})
    Write(path, path);
}

OfficeTest::~OfficeTest() {
  gEditorQuestions = {};
  office_.reset();
  RunPending();
  unsetenv("QB_FAKE_OFFICE");
}

void OfficeTest::Script(const std::vector<std::string>& lines) {
  std::ofstream stream(scripts_ / ("start-" + std::to_string(++scripted_)));
  for (const std::string& line : lines) stream << line << "\n";
}

void OfficeTest::Signal(const std::string& name) {
  std::ofstream(scripts_ / name) << "now";
}

Office& OfficeTest::TheOffice() {
  if (office_ == nullptr) {
    office_ = Office::Make({R"(\bin\quillbank-office)", profiles_.string(), limits_});
    gEditorQuestions.newDocumentBridge = [office = office_] { return MakeOfficeBridge(office); };
  }
  return *office_;
}

std::shared_ptr<IBridge> OfficeTest::Bridge() {
  TheOffice();
  return gEditorQuestions.newDocumentBridge();
}

std::shared_ptr<IBridgeGroup> OfficeTest::AddGroup(std::string_view path) {
  return AskFor<IBridgeGroup>(Bridge()->Groups()->Add(path));
}

std::shared_ptr<IBridgeDocument> OfficeTest::Open(IBridgeGroup& group, std::string_view path,
                                                  std::int32_t mode) {
  const auto document = AskFor<IBridgeDocument>(group.Documents()->Open(path, mode));
  const std::string name = FileNameOf(path);
  document->OnPostClose = [this, name] { events_.push_back(name + " closed"); };
  document->OnPostLocalSave = [this, name] { events_.push_back(name + " saved"); };
  return document;
}

int OfficeTest::Count(std::string_view path) {
  int count = 0;
  Attempt([&] { count = Bridge()->Groups()->Item(std::string(path))->Documents()->Count(); });
  Err.Clear();
  return count;
}

void OfficeTest::RunUntil(const std::function<bool()>& condition) {
  const auto start = std::chrono::steady_clock::now();
  while (!condition()) {
    if (std::chrono::steady_clock::now() - start > kLongest) {
      FAIL() << "What was waited for did not happen";
    }
    if (g_main_context_iteration(nullptr, FALSE) == FALSE) g_usleep(1000);
  }
}

void OfficeTest::RunPending() {
  while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
  }
}

std::vector<std::string> OfficeTest::LinesOf(const std::string& name) const {
  std::ifstream stream(scripts_ / name);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> OfficeTest::Calls() const {
  std::vector<std::string> calls;
  for (const std::string& line : LinesOf("requests")) {
    calls.push_back(nlohmann::json::parse(line)["call"].get<std::string>());
  }
  return calls;
}

nlohmann::json OfficeTest::Request(std::string_view call) const {
  nlohmann::json last;
  for (const std::string& line : LinesOf("requests")) {
    const auto request = nlohmann::json::parse(line);
    if (request["call"] == call) last = request;
  }
  return last;
}

std::vector<std::string> OfficeTest::Starts() const {
  return LinesOf("starts");
}

std::string OfficeTest::RaisedBy(const std::function<void()>& body) {
  std::string description = "nothing was raised";
  if (!Attempt(body)) description = Err.Description;
  Err.Clear();
  return description;
}

}  // namespace qb
