#pragma once

#include <memory>
#include <string>

#include "platform/Dde.h"
#include "ui/controls/SimpleControls.h"

namespace qb {

/// A text box that another program fills over DDE.
class LinkedTextBox : public TextBox {
 public:
  static constexpr int kLinkNone = 0;
  static constexpr int kLinkManual = 2;

  using TextBox::TextBox;

  /// Application and topic, joined by a vertical bar.
  std::string LinkTopic;
  /// What the next request asks for.
  std::string LinkItem;

  /// `kLinkManual` while a conversation stands; it ends by itself when the other program goes.
  int LinkMode() const;
  /// `kLinkNone` ends the conversation, `kLinkManual` begins one unless it stands already. Raises 297 for a
  /// topic without a bar, 5 for any other mode, and what the connection raises.
  void SetLinkMode(int mode);
  /// Asks for the item and puts the answer into `Text`. Raises 293 without a conversation, and what the
  /// request raises.
  void LinkRequest();

 private:
  std::unique_ptr<DdeConversation> conversation_;
};

}  // namespace qb
