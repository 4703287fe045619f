#include "apps/office/FileChecks.h"

#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
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

std::string ReadFile(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool IsNameOfPresentation(const std::string& path) {
  const std::string extension = std::filesystem::path(path).extension().string();
  return strncasecmp(extension.c_str(), ".pp", 3) == 0 || strncasecmp(extension.c_str(), ".pot", 4) == 0;
}

/// The profile folder that a lock file tells, its last field but for the semicolon.
std::string ProfileInLock(const std::string& name) {
  const std::string text = ReadFile(name);
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

/// Looks for the atom about its user that a presentation begins with: its kind, its length, the length of its
/// fixed part, and a mark.
bool IsEncryptedPresentation(const std::string& path) {
  constexpr std::string_view kCompound("\xd0\xcf\x11\xe0", 4);
  constexpr std::string_view kKind("\x00\x00\xf6\x0f", 4);
  constexpr std::string_view kMark("\x14\x00\x00\x00\xdf\xc4\xd1\xf3", 8);
  constexpr std::size_t kLength = 4;
  if (!IsNameOfPresentation(path)) return false;
  const std::string bytes = ReadFile(path);
  if (!bytes.starts_with(kCompound)) return false;
  for (std::size_t place = bytes.find(kMark); place != std::string::npos;
       place = bytes.find(kMark, place + 1)) {
    const std::size_t begin = place - std::min(place, kKind.size() + kLength);
    if (bytes.compare(begin, kKind.size(), kKind) == 0) return true;
  }
  return false;
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
  if (IsEncryptedPresentation(path)) throw Failure("encrypted", path + " is encrypted");
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
