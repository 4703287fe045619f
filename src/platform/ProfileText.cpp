#include "platform/ProfileText.h"

#include <utility>

#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::uint32_t kAddedMark = 0x80000000U;  // tells the places of the two texts apart

}  // namespace

ProfileText::ProfileText(std::string bytes) : original_(std::move(bytes)) {
  if (original_.size() >= kAddedMark) throw RuntimeError(failure::kOutOfMemory);
}

std::string_view ProfileText::Of(const Line& line) const {
  const std::string& text = (line.place & kAddedMark) != 0 ? added_ : original_;
  return {text.data() + (line.place & ~kAddedMark), line.length};
}

void ProfileText::Replace(Line& line, std::string_view bytes) {
  if (bytes.size() > line.length) {
    if (added_.size() + bytes.size() >= kAddedMark) throw RuntimeError(failure::kOutOfMemory);
    line.place = static_cast<std::uint32_t>(added_.size()) | kAddedMark;
    added_.append(bytes);
  } else {
    std::string& text = (line.place & kAddedMark) != 0 ? added_ : original_;
    text.replace(line.place & ~kAddedMark, bytes.size(), bytes);
  }
  line.length = static_cast<std::uint32_t>(bytes.size());
}

}  // namespace qb
