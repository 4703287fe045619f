#include "runtime/SharedText.h"

#include <array>
#include <cstring>
#include <limits>
#include <new>

#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::size_t kRecentTexts = 1024;
constexpr std::size_t kLongestRecent = 64;  // bytes; longer texts rarely come twice

/// Where a text that was made lately is looked for before it is made once more.
SharedText& Recent(std::string_view text) {
  static std::array<SharedText, kRecentTexts> recent;
  return recent[TextHash()(text) % kRecentTexts];
}

}  // namespace

SharedText::Holder* SharedText::Make(std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) throw RuntimeError(failure::kOutOfMemory);
  void* const room = ::operator new(sizeof(Holder) + text.size());
  auto* const holder = new (room) Holder{1, static_cast<std::uint32_t>(text.size())};
  std::memcpy(Characters(holder), text.data(), text.size());
  return holder;
}

SharedText::SharedText(std::string_view text) {
  if (text.empty()) return;
  if (text.size() > kLongestRecent) {
    holder_ = Make(text);
    return;
  }
  SharedText& recent = Recent(text);
  if (recent.View() != text) {
    SharedText made;
    made.holder_ = Make(text);
    recent = made;
  }
  holder_ = recent.holder_;
  Hold();
}

}  // namespace qb
