#include "platform/linux/FileDescriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace qb {
namespace {

constexpr std::size_t kReadStep = 65536;
constexpr std::size_t kWriteStep = 262144;

}  // namespace

FileDescriptor::FileDescriptor(const std::string& native, int flags, unsigned mode) {
  do {
    number_ = open(native.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
  } while (number_ < 0 && errno == EINTR);
}

FileDescriptor::~FileDescriptor() {
  if (number_ >= 0) close(number_);
}

int FileDescriptor::WriteAll(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = write(number_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    if (written == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

int FileDescriptor::WriteAll(const Pieces& pieces) const {
  std::string gathered;
  gathered.reserve(kWriteStep);
  for (const std::string_view piece : pieces) {
    if (gathered.size() + piece.size() > kWriteStep) {
      if (const int error = WriteAll(gathered); error != 0) return error;
      gathered.clear();
    }
    if (piece.size() <= kWriteStep) {
      gathered.append(piece);
    } else if (const int error = WriteAll(piece); error != 0) {
      return error;
    }
  }
  return WriteAll(gathered);
}

int FileDescriptor::ReadAll(std::string& bytes, std::size_t size) const {
  std::size_t filled = bytes.size();
  bytes.resize(filled + size);
  while (true) {
    if (filled == bytes.size()) bytes.resize(filled + kReadStep);
    const ssize_t count = read(number_, bytes.data() + filled, bytes.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) {
      const int error = count < 0 ? errno : 0;
      bytes.resize(filled);
      return error;
    }
    filled += static_cast<std::size_t>(count);
  }
}

int FileDescriptor::Sync() const {
  while (fsync(number_) != 0) {
    if (errno != EINTR) return errno;
  }
  return 0;
}

int FileDescriptor::Close() {
  const int number = std::exchange(number_, -1);
  return number >= 0 && close(number) != 0 && errno != EINTR ? errno : 0;
}

}  // namespace qb
