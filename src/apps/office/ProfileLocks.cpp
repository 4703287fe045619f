#include "apps/office/ProfileLocks.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace qb::office {
namespace {

std::string HelperLockName(const std::string& profile) {
  return profile + "/.quillbank-lock";
}
std::string OfficeLockName(const std::string& profile) {
  return profile + "/.quillbank-office-lock";
}

Descriptor OpenLock(const std::string& name, int flags) {
  Descriptor lock(open(name.c_str(), O_RDWR | flags, 0600));
  if (!lock) throw std::system_error(errno, std::generic_category(), name);
  return lock;
}

/// Whether the file is there and nobody holds it.
bool IsFree(const std::string& name) {
  const Descriptor lock(open(name.c_str(), O_RDWR | O_CLOEXEC));
  return lock && flock(lock.Get(), LOCK_EX | LOCK_NB) == 0;
}

}  // namespace

std::optional<Descriptor> LockProfile(const std::string& profile) {
  std::filesystem::create_directories(profile);
  Descriptor lock = OpenLock(HelperLockName(profile), O_CREAT | O_CLOEXEC);
  if (flock(lock.Get(), LOCK_EX | LOCK_NB) == 0) return lock;
  if (errno != EWOULDBLOCK) throw std::system_error(errno, std::generic_category(), HelperLockName(profile));
  return std::nullopt;
}

Descriptor OfficeLock(const std::string& profile) {
  Descriptor lock = OpenLock(OfficeLockName(profile), O_CREAT);
  // If it is taken, the office of an earlier helper lives, and the start only finds it.
  if (flock(lock.Get(), LOCK_EX | LOCK_NB) != 0) fcntl(lock.Get(), F_SETFD, FD_CLOEXEC);
  return lock;
}

bool IsDeserted(const std::string& profile) {
  return IsFree(HelperLockName(profile)) && IsFree(OfficeLockName(profile));
}

}  // namespace qb::office
