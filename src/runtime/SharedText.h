#pragma once

#include <fmt/format.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace qb {

/// A text of which there are very many: takes the room of a pointer, and copies share their characters. Equal
/// texts that are made soon after each other share them too. For the one thread of the program. Raises 7 (out
/// of memory) from 4 GiB on.
class SharedText {
 public:
  SharedText() = default;
  SharedText(std::string_view text);
  explicit SharedText(const std::string& text) : SharedText(std::string_view(text)) {}
  SharedText(const char* text) : SharedText(std::string_view(text)) {}
  SharedText(const SharedText& other) : holder_(other.holder_) { Hold(); }
  SharedText(SharedText&& other) noexcept : holder_(std::exchange(other.holder_, nullptr)) {}
  SharedText& operator=(SharedText other) noexcept {
    std::swap(holder_, other.holder_);
    return *this;
  }
  SharedText& operator=(std::string_view text) { return *this = SharedText(text); }
  SharedText& operator=(const char* text) { return *this = SharedText(text); }
  ~SharedText() { Release(); }

  /// The characters; they stay as long as any copy of the text.
  std::string_view View() const;
  operator std::string_view() const { return View(); }
  operator std::string() const { return std::string(View()); }
  bool empty() const { return holder_ == nullptr; }
  std::size_t size() const { return View().size(); }
  void clear() { *this = SharedText(); }

  friend bool operator==(const SharedText& left, const SharedText& right) {
    return left.holder_ == right.holder_ || left.View() == right.View();
  }
  friend bool operator==(const SharedText& left, std::string_view right) { return left.View() == right; }
  friend bool operator==(const SharedText& left, const std::string& right) { return left.View() == right; }
  friend bool operator==(const SharedText& left, const char* right) { return left.View() == right; }
  template <std::convertible_to<std::string_view> Text>
  friend std::string operator+(const SharedText& left, const Text& right) {
    return std::string(left.View()).append(std::string_view(right));
  }
  template <std::convertible_to<std::string_view> Text>
  requires(!std::same_as<Text, SharedText>) friend std::string operator+(const Text& left,
                                                                         const SharedText& right) {
    return std::string(std::string_view(left)).append(right.View());
  }

 private:
  /// Stands before the characters; a text without characters has none.
  struct Holder {
    std::uint32_t uses;
    std::uint32_t length;
  };

  static Holder* Make(std::string_view text);
  static char* Characters(Holder* holder) { return reinterpret_cast<char*>(holder + 1); }
  void Hold() {
    if (holder_ != nullptr)
      ++holder_->uses;  // NOLINT(clang-analyzer-cplusplus.NewDelete): it loses count of the copies
  }
  void Release() {
    if (holder_ != nullptr && --holder_->uses == 0) ::operator delete(holder_);
  }

  Holder* holder_ = nullptr;
};

inline std::string_view SharedText::View() const {
  return holder_ == nullptr ? std::string_view{} : std::string_view(Characters(holder_), holder_->length);
}

/// Hashes texts of every kind alike, for look-ups without a copy. Raises nothing, so that tables need not
/// keep the hash of each key.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>()(text); }
};

}  // namespace qb

template <>
struct fmt::formatter<qb::SharedText> : fmt::formatter<std::string_view> {
  template <class Context>
  auto format(const qb::SharedText& text, Context& context) const {
    return fmt::formatter<std::string_view>::format(text.View(), context);
  }
};
