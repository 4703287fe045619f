#include "apps/office/FileChecks.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "apps/office/Failure.h"
#include "apps/office/ProfileLocks.h"
#include "apps/office/UnoText.h"

namespace qb::office {
namespace {

std::string LockName(const std::string& path) {
  const std::filesystem::path file(path);
  return file.parent_path() / (".~lock." + file.filename().string() + '#');
}

/// The profile folder that a lock file tells, its last field but for the semicolon.
std::string ProfileInLock(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  const std::size_t begin = text.rfind(',');
  const std::size_t end = text.rfind(';');
  if (begin == std::string::npos || end == std::string::npos || end < begin) return "";
  return FilePath(ToUno(text.substr(begin + 1, end - begin - 1)));
}

/// An office fills its lock right after it has made it, unless the disk is full.
constexpr auto kToFillALock = std::chrono::seconds(2);

bool IsEmptyFile(const std::string& name) {
  struct stat found {};
  return lstat(name.c_str(), &found) == 0 && S_ISREG(found.st_mode) && found.st_size == 0;
}

bool IsLongMade(const std::string& name) {
  std::error_code gone;
  const auto made = std::filesystem::last_write_time(name, gone);
  return !gone && std::filesystem::file_time_type::clock::now() - made > kToFillALock;
}

}  // namespace

void CheckFile(const std::string& path, bool forWriting) {
  struct stat found {};
  if (stat(path.c_str(), &found) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) throw Failure("missing", path + " is not there");
    throw Failure("office", path + ": " + std::strerror(errno));
  }
  if (S_ISDIR(found.st_mode)) throw Failure("folder", path + " is a folder");
  if (!S_ISREG(found.st_mode)) throw Failure("damaged", path + " is not a file");
  if (access(path.c_str(), R_OK) != 0)
    throw Failure("office", path + " cannot be read: " + std::strerror(errno));
  if (forWriting && access(path.c_str(), W_OK) != 0) {
    throw Failure("office", path + " cannot be written: " + std::strerror(errno));
  }
  if (found.st_size == 0) throw Failure("damaged", path + " is empty");
}

void RemoveDesertedLock(const std::string& path) {
  const std::string name = LockName(path);
  const std::string profile = ProfileInLock(name);
  const bool isForgotten = profile.empty() ? IsEmptyFile(name) && IsLongMade(name) : IsDeserted(profile);
  if (isForgotten) unlink(name.c_str());
}

void RemoveEmptyLock(const std::string& path) {
  const std::string name = LockName(path);
  if (IsEmptyFile(name)) unlink(name.c_str());
}

bool HasLock(const std::string& path) {
  return access(LockName(path).c_str(), F_OK) == 0;
}

}  // namespace qb::office
