#pragma once

#include <deque>
#include <mutex>

namespace qb::office {

/// What the office did by itself.
struct Happening {
  enum class Kind {
    kSaved,
    kClosed,
    kOpenedLate,  ///< nobody waits for it any more
    kOfficeGone,
  };
  Kind kind;
  /// The number of the document; 0 for `kOfficeGone`.
  int document;
};

/// Happenings in their order, from any thread to the one that writes the lines.
class Happenings {
 public:
  Happenings();
  Happenings(const Happenings&) = delete;
  Happenings& operator=(const Happenings&) = delete;
  ~Happenings();

  /// Never waits for anybody, so that the office, whose threads call it, does not either.
  void Push(Happening happening) noexcept;
  /// All that happened since the last call.
  std::deque<Happening> Take();
  /// Can be read while there is something to take.
  int Descriptor() const { return descriptor_; }

 private:
  std::mutex mutex_;
  std::deque<Happening> waiting_;
  int descriptor_;
};

}  // namespace qb::office
