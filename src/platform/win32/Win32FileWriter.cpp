#include "platform/win32/Win32FileWriter.h"

#include "platform/win32/Win32Errors.h"
#include "platform/win32/Win32Files.h"

namespace qb {
namespace {

constexpr std::size_t kPieceSize = 65536;

}  // namespace

Win32FileWriter::~Win32FileWriter() {
  WriteAll(file_, pending_);
}

void Win32FileWriter::Write(std::string_view bytes) {
  pending_.append(bytes);
  if (pending_.size() >= kPieceSize) Flush();
}

void Win32FileWriter::Flush() {
  const std::uint32_t error = WriteAll(file_, pending_);
  pending_.clear();
  if (error != 0) RaiseSystemError(error, path_, native_);
}

}  // namespace qb
