#include "platform/linux/TemporaryFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace qb {
namespace {

constexpr int kNameAttempts = 100;

}  // namespace

std::string FolderOf(const std::string& native) {
  const std::size_t separator = native.rfind('/');
  return separator == 0 ? "/" : native.substr(0, separator);
}

TemporaryFile::TemporaryFile(const std::string& folder, unsigned mode) {
  for (int i = 0; i < kNameAttempts; ++i) {
    name_ = folder + "/.quillbank-" + std::to_string(getpid()) + "-" + std::to_string(i) + ".tmp";
    file_ = FileDescriptor(name_, O_WRONLY | O_CREAT | O_EXCL, mode);
    if (file_ || errno != EEXIST) break;
  }
  error_ = file_ ? 0 : errno;
}

TemporaryFile::~TemporaryFile() {
  if (error_ == 0 && !moved_) unlink(name_.c_str());
}

int TemporaryFile::MoveTo(const std::string& target) {
  if (rename(name_.c_str(), target.c_str()) != 0) return errno;
  moved_ = true;
  return 0;
}

}  // namespace qb
