#include "platform/linux/LinuxFileWriter.h"

#include "platform/linux/LinuxErrors.h"

namespace qb {
namespace {

constexpr std::size_t kPieceSize = 65536;

}  // namespace

LinuxFileWriter::~LinuxFileWriter() {
  file_.WriteAll(pending_);
}

void LinuxFileWriter::Write(std::string_view bytes) {
  pending_.append(bytes);
  if (pending_.size() >= kPieceSize) Flush();
}

void LinuxFileWriter::Flush() {
  const int error = file_.WriteAll(pending_);
  pending_.clear();
  if (error != 0) RaiseSystemError(error, path_, native_);
}

}  // namespace qb
