#include "platform/HeldProfile.h"

#include <chrono>
#include <utility>

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

/// Longer than a tick of the clock that stamps files.
constexpr std::int64_t kYoungNanoseconds = 20'000'000;

/// Whether a further change could still get the very same stamp. A stamp from another machine's clock may lie
/// ahead; only closeness counts.
bool IsYoung(const FileStamp& stamp) {
  const auto now = std::chrono::duration_cast<std::chrono::nanoseconds>(
                       std::chrono::system_clock::now().time_since_epoch())
                       .count();
  const std::int64_t changed = stamp.lastChange.seconds * 1'000'000'000 + stamp.lastChange.nanoseconds;
  const std::int64_t age = now - changed;
  return age < kYoungNanoseconds && age > -kYoungNanoseconds;
}

}  // namespace

void HeldProfile::Refresh() {
  if (batches_ > 0) return;
  try {
    Verify();
  } catch (const RuntimeError&) {
    // A file that cannot be read answers as a missing one does; a write to it will say why.
    Forget();
  }
}

void HeldProfile::Verify() {
  const std::optional<FileStamp> stamp = files_.Stamp(path_);
  if (!loaded_ || young_ || stamp != stamp_) Load(stamp);
}

void HeldProfile::Load(const std::optional<FileStamp>& stamp) {
  loaded_ = false;
  image_ = {};  // gives the room back before the file is read again
  young_ = stamp && IsYoung(*stamp);
  if (stamp) image_ = ProfileImage(files_.Read(path_));
  codePage_ = image_.IsMarkedAsUtf8() ? kUtf8 : chooser_(image_);
  image_.SetFolding([&codec = codec_, page = codePage_](std::string_view name) {
    return UpperCase(codec.Decode(name, page));
  });
  stamp_ = stamp;
  loaded_ = true;
  journal_.Replay(image_);
}

void HeldProfile::Forget() {
  image_ = {};
  stamp_.reset();
  loaded_ = false;
}

void HeldProfile::Change(const ProfileChange& change) {
  if (batches_ > 0) {
    if (image_.Apply(change)) journal_.Add(change);
    return;
  }
  if (!loaded_) Verify();
  if (!image_.WouldChange(change) && journal_.Empty()) return;
  const std::unique_ptr<FileLock> lock = files_.Lock(path_);
  const ProfileJournal before = journal_;
  journal_.Add(change);
  try {
    image_.Apply(change);
    Flush();
  } catch (...) {
    journal_ = before;
    Forget();  // the image holds a change that the file does not
    throw;
  }
}

void HeldProfile::BeginBatch() {
  if (batches_ == 0) {
    try {
      lock_ = files_.Lock(path_);
    } catch (const RuntimeError&) {
      lock_.reset();  // reading goes on; the write at the end asks for the lock once more
    }
    Refresh();
  }
  ++batches_;
}

void HeldProfile::EndBatch() {
  if (--batches_ > 0) return;
  std::unique_ptr<FileLock> lock = std::move(lock_);
  if (journal_.Empty()) return;
  if (!lock) lock = files_.Lock(path_);
  Flush();
}

void HeldProfile::Flush() {
  Verify();  // somebody who does not ask for the lock may have written: his changes stay, ours are made once
             // more
  stamp_ = files_.ReplaceContent(path_, image_.Content());
  young_ = false;
  journal_.Clear();
}

}  // namespace qb
