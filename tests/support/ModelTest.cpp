#include "support/ModelTest.h"

#include "foundation/CMessageHandler.h"
#include "foundation/CTrace.h"
#include "foundation/FoundationState.h"
#include "foundation/OrbQBCommonFunctionsMod.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr const char* kTraceFile = R"(\trace.txt)";

}  // namespace

ModelTest::ModelTest() {
  gPxfFile = std::make_shared<CPxfFile>();
  gPxfFile->Init(kPackage);
  MakeFolder(R"(\pkg)");
  gProtocolDirectory.packageExists = [] { return gPxfFile != nullptr; };
  gProtocolDirectory.packageDirectory = [] { return gPxfFile->GetPxfPath(); };
  gMessageHandler = std::make_unique<CMessageHandler>();
  gModelQuestions.newEditorSlots = [this] { ++newEditorSlots_; };
  gModelQuestions.quitProgram = [this](bool force) { quits_.push_back(force); };
  Tree().AddEx(nullptr, TableTree::kNewRoot, "@ROOT", kPackage, 11, 11, 0);
}

ModelTest::~ModelTest() {
  ResetFoundationState();  // the protocol's footer still goes beside the package
  TakeRefusedWrite();
  gLoios.reset();
  gPxfFile.reset();
  gModelQuestions = {};
  gTouchedBeforeLoad = false;
  TheForms().Clear();
}

void ModelTest::WriteDocumentFiles(const PackageBuilder& package) {
  for (const std::string& file : package.Files()) Write(R"(\pkg\)" + file, "content of " + file);
}

bool ModelTest::Load() {
  List().Clear();
  Tree().AddEx(nullptr, TableTree::kNewRoot, "@ROOT", kPackage, 11, 11, 0);
  return gPxfFile->LoadData();
}

void ModelTest::LoadPackage(const PackageBuilder& package) {
  WritePackage(package);
  ASSERT_TRUE(Load());
}

std::string ModelTest::Entry(std::string_view section, std::string_view key) {
  return GetIniEntry(kPackage, section, key, {});
}

void ModelTest::StartTrace() {
  gTrace = std::make_unique<CTrace>();
  gTrace->Level = 3;
  gTrace->Active = true;
  gTrace->OpenLog(kTraceFile);
}

std::vector<std::string> ModelTest::TraceLines() const {
  constexpr std::size_t kPrefix = 29;  // date, time and computer name, the same in every line
  std::vector<std::string> lines;
  for (const std::string& line : Split(Bytes(kTraceFile), "\r\n")) {
    if (line.size() > kPrefix) lines.push_back(line.substr(kPrefix));
  }
  return lines;
}

}  // namespace qb
