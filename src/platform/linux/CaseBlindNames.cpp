#include "platform/linux/CaseBlindNames.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>
#include <climits>
#include <ctime>
#include <memory>
#include <utility>

#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::size_t kMostNames = 200'000;
constexpr std::int64_t kYoungNanoseconds = 20'000'000;  // longer than a tick of the clock that stamps folders

bool IsThere(const std::string& native) {
  struct stat status {};
  // What may not be looked at counts as there, so that the use of it tells why.
  return lstat(native.c_str(), &status) == 0 ||
         (errno != ENOENT && errno != ENOTDIR && errno != ENAMETOOLONG);
}

bool IsYoung(const struct stat& status) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const std::int64_t age =
      (now.tv_sec - status.st_mtim.tv_sec) * 1'000'000'000 + now.tv_nsec - status.st_mtim.tv_nsec;
  return age < kYoungNanoseconds && age > -kYoungNanoseconds;
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

std::pair<std::string, std::string> SplitLast(const std::string& native) {
  const std::size_t separator = native.rfind('/');
  return {separator == 0 ? "/" : native.substr(0, separator), native.substr(separator + 1)};
}

std::string Joined(const std::string& folder, const std::string& name) {
  return folder == "/" ? folder + name : folder + "/" + name;
}

}  // namespace

std::optional<std::string> CaseBlindNames::Existing(const std::string& native) {
  if (native.empty() || native.front() != '/' || native.size() >= PATH_MAX) return std::nullopt;
  if (IsThere(native)) return native;
  if (native == "/") return std::nullopt;
  const auto [folder, name] = SplitLast(native);
  const std::optional<std::string> found = Existing(folder);
  if (!found) return std::nullopt;
  if (name.empty() || name == "." || name == "..") {
    const std::string path = Joined(*found, name);
    return IsThere(path) ? std::optional(path) : std::nullopt;
  }
  const Listing* const listing = Folder(*found);
  if (listing == nullptr) return std::nullopt;
  const auto spelled = listing->names.find(UpperCase(name));
  if (spelled == listing->names.end()) return std::nullopt;
  return Joined(*found, spelled->second);
}

std::string CaseBlindNames::ForCreation(const std::string& native) {
  if (const std::optional<std::string> found = Existing(native)) return *found;
  if (native.size() <= 1 || native.front() != '/') return native;
  const auto [folder, name] = SplitLast(native);
  const std::optional<std::string> found = Existing(folder);
  return found ? Joined(*found, name) : native;
}

const CaseBlindNames::Listing* CaseBlindNames::Folder(const std::string& native) {
  struct stat status {};
  if (stat(native.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return nullptr;
  const auto found = folders_.find(native);
  if (found != folders_.end()) {
    Listing& held = found->second;
    if (!held.young && held.device == status.st_dev && held.node == status.st_ino &&
        held.seconds == status.st_mtim.tv_sec && held.nanoseconds == status.st_mtim.tv_nsec) {
      return &held;
    }
    namesHeld_ -= held.names.size();
    folders_.erase(found);
  }
  if (namesHeld_ >= kMostNames) {
    folders_.clear();
    namesHeld_ = 0;
  }
  Listing& listing = folders_[native];
  listing.device = status.st_dev;
  listing.node = status.st_ino;
  listing.seconds = status.st_mtim.tv_sec;
  listing.nanoseconds = status.st_mtim.tv_nsec;
  listing.young = IsYoung(status);
  Read(native, listing);
  return &listing;
}

void CaseBlindNames::Read(const std::string& native, Listing& listing) {
  const std::unique_ptr<DIR, CloseFolder> folder(opendir(native.c_str()));
  if (!folder) return;
  while (const dirent* const entry = readdir(folder.get())) {
    std::string name = entry->d_name;
    const auto [place, isNew] = listing.names.try_emplace(UpperCase(name), name);
    // Of two spellings the same one always wins.
    if (!isNew && name < place->second) place->second = std::move(name);
  }
  namesHeld_ += listing.names.size();
}

}  // namespace qb
