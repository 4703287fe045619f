#pragma once

#include <exception>
#include <string_view>

#include "platform/win32/ComHeaders.h"

namespace qb {

/// One call into the library. What a handler of an event raises meanwhile must not pass through the library:
/// it waits here for the end of the call.
class MemberCall {
 public:
  MemberCall();
  MemberCall(const MemberCall&) = delete;
  MemberCall& operator=(const MemberCall&) = delete;
  ~MemberCall();

  /// The innermost call that is under way; nothing if there is none.
  static MemberCall* Current();
  /// Keeps the first failure of the call.
  void Hold(std::exception_ptr failure);
  /// Raises what was held, else what the library says went wrong in `member`.
  void Finish(HRESULT result, std::string_view member);

 private:
  MemberCall* outer_;
  std::exception_ptr held_;
};

/// Entries of every automation interface, in front of its own members.
inline constexpr int kInheritedEntries = 7;

/// Calls the member at `position` of the interface that `object` points to. The argument types are the
/// member's own. Raises what the member raises, with `member` to name it where the library does not.
template <class... Arguments>
void CallMember(IUnknown* object, int position, std::string_view member, Arguments... arguments) {
  using Member = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, Arguments...);
  void* const* const entries = *reinterpret_cast<void* const* const*>(object);
  MemberCall call;
  call.Finish(reinterpret_cast<Member>(entries[kInheritedEntries + position])(object, arguments...), member);
}

}  // namespace qb
