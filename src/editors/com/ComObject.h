#pragma once

#include <utility>

#include "editors/com/BridgeLibrary.h"
#include "editors/com/MemberCall.h"
#include "platform/win32/ComHeaders.h"

namespace qb {

/// An object of the library, held as long as this lives. `Interface` is what the program asks of it.
template <class Interface>
class ComObject : public Interface {
 public:
  ComObject(std::shared_ptr<const BridgeLibrary> library, ComPtr<IUnknown> object)
      : library_(std::move(library)), object_(std::move(object)) {}

 protected:
  using Library = std::shared_ptr<const BridgeLibrary>;

  const Library& TheLibrary() const { return library_; }
  IUnknown* Object() const { return object_.Get(); }

  template <class... Arguments>
  void Call(int position, std::string_view member, Arguments... arguments) const {
    // The library's object lives through the call even if an event lets go of this one.
    const ComPtr<IUnknown> object = object_;
    CallMember(object.Get(), position, member, arguments...);
  }

  /// What a member gives that is an object itself, or nothing.
  template <class... Arguments>
  ComPtr<IUnknown> CallForObject(int position, std::string_view member, Arguments... arguments) const {
    ComPtr<IUnknown> object;
    Call(position, member, arguments..., object.GetAddressOf());
    return object;
  }

  /// What a member gives, as `Wrapped`; nothing stays nothing.
  template <class Wrapped, class... Arguments>
  std::shared_ptr<Wrapped> CallFor(int position, std::string_view member, Arguments... arguments) const {
    const Library library = library_;
    auto object = CallForObject(position, member, arguments...);
    if (object == nullptr) return nullptr;
    return std::make_shared<Wrapped>(library, std::move(object));
  }

 private:
  Library library_;
  ComPtr<IUnknown> object_;
};

/// `object` as the interface of this identifier; nothing if it has no such interface.
inline ComPtr<IUnknown> AskForInterface(IUnknown& object, const IID& identifier) {
  ComPtr<IUnknown> asked;
  if (FAILED(object.QueryInterface(identifier, Into(asked)))) return nullptr;
  return asked;
}

}  // namespace qb
