#include "editors/libreoffice/OpenElsewhere.h"

#include <charconv>

#include "foundation/gRvdFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::string_view kFileUrl = "file://";

std::string WithoutPercents(std::string_view url) {
  std::string text;
  for (std::size_t i = 0; i < url.size(); ++i) {
    unsigned code = 0;
    const char* const digits = url.data() + i + 1;
    const bool coded = url[i] == '%' && i + 2 < url.size() &&
                       std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2;
    text.push_back(coded ? static_cast<char>(code) : url[i]);
    if (coded) i += 2;
  }
  return text;
}

/// The folder of the profile that a lock file names in its last field; empty if it names none.
std::string ProfileOf(std::string_view lock) {
  const std::size_t start = lock.rfind(kFileUrl);
  if (start == std::string_view::npos) return {};
  std::string_view url = lock.substr(start + kFileUrl.size());
  url = url.substr(0, url.find(';'));
  while (url.ends_with('/')) url.remove_suffix(1);
  return WithoutPercents(url);
}

}  // namespace

bool IsSameFile(std::string_view left, std::string_view right) {
  FileSystem& files = *ThePlatform().files;
  const auto leftStamp = files.Stamp(left);
  const auto rightStamp = files.Stamp(right);
  if (leftStamp && rightStamp) {
    return leftStamp->device == rightStamp->device && leftStamp->node == rightStamp->node;
  }
  return EqualIgnoringCase(files.Resolved(left), files.Resolved(right));
}

LockHolder HolderOfLock(std::string_view path, const std::string& profiles, const std::string& own) {
  Platform& platform = ThePlatform();
  const auto file = platform.files->Find(path);
  const std::string name = file ? file->name : FileNameOf(path);
  const std::string lock = JoinFile(DirectoryOf(path), ".~lock." + name + "#");
  std::string content;
  if (!platform.files->Find(lock)) return LockHolder::kNobody;
  const PendingError pending = Err;
  const bool read = Attempt([&] { content = platform.files->Read(lock); });
  Err = pending;
  const bool isThere = read || platform.files->Find(lock);  // else it has gone just now
  if (!read) return isThere ? LockHolder::kAnotherOffice : LockHolder::kNobody;
  // Made while the disk was full, or just now: the helper can tell.
  if (content.empty()) return LockHolder::kNobody;
  const std::string profile = ProfileOf(content);
  if (!profile.starts_with(profiles + "/")) return LockHolder::kAnotherOffice;
  if (profile == own) return LockHolder::kOwnOffice;
  const bool lives = platform.helpers->IsLockHeld(profile + "/.quillbank-lock") ||
                     platform.helpers->IsLockHeld(profile + "/.quillbank-office-lock");
  return lives ? LockHolder::kAnotherOffice : LockHolder::kNobody;
}

}  // namespace qb
