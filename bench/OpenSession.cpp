#include "bench/OpenSession.h"

#include <fmt/format.h>

#include <stdexcept>

#include "bench/LimitPass.h"
#include "bench/PackageGenerator.h"
#include "model/CLoioEntry.h"
#include "workflow/DocumentCommands.h"
#include "workflow/OpenPackage.h"
#include "workflow/Settings.h"

namespace qb {
namespace {

constexpr int kAnswerYes = 6;

}  // namespace

OpenSession::OpenSession(int documents) : documents_(documents) {
  std::filesystem::create_directories(PackageFile().parent_path());
  WriteAndSync(PackageFile(), PackageBytes(documents));
  Start();
  if (gTraceOn) ToggleTrace();
}

void OpenSession::Open() {
  QbtOpen(kPackage);
  if (gPxfFile == nullptr || gLoios == nullptr || static_cast<int>(gLoios->Count()) != documents_) {
    throw std::logic_error(fmt::format("The package of {} documents did not open", documents_));
  }
}

void OpenSession::MarkCompleted(int document) {
  const std::string key = DocumentKey(document);
  SelectNode(key);
  Boxes().AnswerNext(kAnswerYes);
  QbtMarkCompleted();
  if (!gLoios->Item(key)->state->isCompleted()) throw std::logic_error(key + " was not marked");
}

}  // namespace qb
