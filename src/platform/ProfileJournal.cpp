#include "platform/ProfileJournal.h"

#include <string_view>

namespace qb {
namespace {

// A record is a kind and as many texts, each ended by a NUL.
constexpr char kRemoveSection = '1';
constexpr char kRemoveKey = '2';
constexpr char kSetValue = '3';

std::string_view TakeText(std::string_view& records) {
  const std::string_view text = records.substr(0, records.find('\0'));
  records.remove_prefix(text.size() + 1);
  return text;
}

}  // namespace

void ProfileJournal::Add(const ProfileChange& change) {
  records_.push_back(!change.key ? kRemoveSection : !change.value ? kRemoveKey : kSetValue);
  records_.append(change.section).push_back('\0');
  if (!change.key) return;
  records_.append(*change.key).push_back('\0');
  if (change.value) records_.append(*change.value).push_back('\0');
}

void ProfileJournal::Replay(ProfileImage& image) const {
  for (std::string_view rest = records_; !rest.empty();) {
    const char kind = rest.front();
    rest.remove_prefix(1);
    ProfileChange change{TakeText(rest), {}, {}};
    if (kind != kRemoveSection) change.key = TakeText(rest);
    if (kind == kSetValue) change.value = TakeText(rest);
    image.Apply(change);
  }
}

}  // namespace qb
