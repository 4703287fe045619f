#include "apps/office/Happenings.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace qb::office {

Happenings::Happenings() : descriptor_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
  if (descriptor_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
}

Happenings::~Happenings() {
  close(descriptor_);
}

void Happenings::Push(Happening happening) noexcept {
  const std::lock_guard lock(mutex_);
  waiting_.push_back(happening);
  eventfd_write(descriptor_, 1);
}

std::deque<Happening> Happenings::Take() {
  const std::lock_guard lock(mutex_);
  eventfd_t count = 0;
  eventfd_read(descriptor_, &count);
  return std::exchange(waiting_, {});
}

}  // namespace qb::office
