#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/Applications.h"
#include "runtime/Collection.h"
#include "runtime/RuntimeError.h"
#include "runtime/TaggedValue.h"

// The Document Bridge opens documents in their office applications and keeps them in groups. These are the
// members that the program uses. A number is a member's position in its interface, counted from 0 behind the
// seven entries that every automation interface begins with; a bridge that is bound by position needs it.
//
// Every member may raise RuntimeError. Every member that gives an object may give nothing.
// Everything runs on the program's one thread.

namespace qb {

/// What a member gives that promises no interface of its own.
class BridgeObject {
 public:
  BridgeObject() = default;
  BridgeObject(const BridgeObject&) = delete;
  BridgeObject& operator=(const BridgeObject&) = delete;
  virtual ~BridgeObject() = default;
};

class IBridgeProperty {
 public:
  virtual ~IBridgeProperty() = default;
  virtual TaggedValue Value() = 0;                      // 12
  virtual void Value(const TaggedValue& newValue) = 0;  // 13
};

class IBridgeProperties {
 public:
  virtual ~IBridgeProperties() = default;
  /// The property of this name. May raise if there is none.
  virtual std::shared_ptr<IBridgeProperty> Item(const TaggedValue& name) = 0;  // 17
};

/// A document that is open in its application. Letting go of it closes nothing.
class IBridgeDocument : public BridgeObject {
 public:
  /// The application's own object, asked by name for "Name" and, of a presentation, "ActivePresentation".
  virtual std::shared_ptr<AutomationObject> Application() = 0;  // 28
  /// The application's own document object, asked by name for "Hyperlinks".
  virtual std::shared_ptr<AutomationObject> HostDocument() = 0;       // 30
  virtual std::shared_ptr<IBridgeProperties> CustomProperties() = 0;  // 32
  /// The texts of the document's links, for applications that the program does not ask by name.
  virtual std::shared_ptr<Collection<std::string>> Hyperlinks() = 0;  // 33

  /// Event 4: the document has been closed, by its user or by its group. Its group no longer counts it.
  std::function<void()> OnPostClose;
  /// Event 5: the document has been saved to its file.
  std::function<void()> OnPostLocalSave;

  /// Raise an event, which may let go of the document or put another handler in place. What the handler
  /// raises comes out here.
  void RaiseOnPostClose() const { Raise(OnPostClose); }
  void RaiseOnPostLocalSave() const { Raise(OnPostLocalSave); }

 private:
  static void Raise(const std::function<void()>& event) {
    const std::function<void()> handler = event;  // outlives the document
    if (handler) handler();
  }
};

class IBridgeDocuments {
 public:
  virtual ~IBridgeDocuments() = default;
  virtual std::int32_t Count() = 0;  // 12
  /// Opens a document, to be asked for IBridgeDocument; each call gives an object of its own. `mode` is one
  /// of `bridge_mode`. Events of the document begin after the return.
  virtual std::shared_ptr<BridgeObject> Open(std::string_view path, std::int32_t mode) = 0;  // 19
};

namespace bridge_mode {
inline constexpr std::int32_t kWritable = 0;
inline constexpr std::int32_t kReadOnly = 1;
}  // namespace bridge_mode

/// The documents that belong together.
class IBridgeGroup : public BridgeObject {
 public:
  virtual std::shared_ptr<IBridgeDocuments> Documents() = 0;  // 12
  /// Closes the group's documents. Their events are raised before it returns.
  virtual void Close() = 0;  // 17
  /// Puts the group's windows side by side; `style` is 2 or 3.
  virtual void Arrange(std::int32_t style) = 0;  // 18
};

/// The groups of all bridges of the process.
class IBridgeGroups {
 public:
  virtual ~IBridgeGroups() = default;
  /// The group of a document path. Raises if there is none, which is a normal outcome.
  virtual std::shared_ptr<IBridgeGroup> Item(const TaggedValue& key) = 0;  // 17
  /// A new group for a document path, to be asked for IBridgeGroup.
  virtual std::shared_ptr<BridgeObject> Add(std::string_view path) = 0;  // 18
};

/// What the application of a MIME type may be able to do.
namespace bridge_capability {
inline constexpr std::int32_t kOpenReadOnly = 9;
inline constexpr std::int32_t kArrange2 = 25;
inline constexpr std::int32_t kArrange3 = 28;
}  // namespace bridge_capability

/// One environment of editor applications.
class IBridge {
 public:
  virtual ~IBridge() = default;
  virtual std::shared_ptr<IBridgeGroups> Groups() = 0;  // 16
  /// Nonzero if the application for the type has the capability, one of `bridge_capability`.
  virtual std::int32_t QueryCapability(std::string_view mimeType, std::int32_t capability) = 0;  // 22
};

/// `object` as the interface that it is asked for; nothing stays nothing. Raises 13 if it has no such
/// interface.
template <class Interface>
std::shared_ptr<Interface> AskFor(const std::shared_ptr<BridgeObject>& object) {
  auto asked = std::dynamic_pointer_cast<Interface>(object);
  if (object != nullptr && asked == nullptr) throw RuntimeError(failure::kTypeMismatch);
  return asked;
}

/// The object behind a pointer; raises 91 if there is none.
template <class Interface>
Interface& Existing(const std::shared_ptr<Interface>& object) {
  if (object == nullptr) throw RuntimeError(failure::kObjectNotSet);
  return *object;
}

}  // namespace qb
