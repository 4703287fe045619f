#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace qb {

/// A conversation with another program about one topic. Its end ends the conversation.
class DdeConversation {
 public:
  virtual ~DdeConversation() = default;
  /// Asks for an item by its name and returns its text. The wait for the answer is bounded. An empty item is
  /// a first contact, whose answer is empty where the platform knows no item without a name. Raises 285 (the
  /// other program has no such item), 286 (no answer in time), 290 (the answer is no text), 291 (the other
  /// program has gone) or 292 (it has ended the conversation).
  virtual std::string Request(std::string_view item) = 0;
  /// Whether the other program is still there for this conversation.
  virtual bool IsOpen() = 0;
};

/// Conversations with programs that offer texts under an application name.
class Dde {
 public:
  virtual ~Dde() = default;
  /// Raises 282 if no program answers to this application and topic.
  virtual std::unique_ptr<DdeConversation> Connect(std::string_view application, std::string_view topic) = 0;
};

}  // namespace qb
