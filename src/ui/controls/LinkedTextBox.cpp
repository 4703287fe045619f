#include "ui/controls/LinkedTextBox.h"

#include "platform/Platform.h"
#include "runtime/RuntimeError.h"

namespace qb {

int LinkedTextBox::LinkMode() const {
  return conversation_ != nullptr && conversation_->IsOpen() ? kLinkManual : kLinkNone;
}

void LinkedTextBox::SetLinkMode(int mode) {
  if (mode == kLinkManual && LinkMode() == kLinkManual) return;
  conversation_.reset();
  if (mode == kLinkNone) return;
  if (mode != kLinkManual) throw RuntimeError(failure::kInvalidArgument);
  const std::string_view topic = LinkTopic;
  const std::size_t bar = topic.find('|');
  if (bar == std::string_view::npos) throw RuntimeError(failure::kInvalidLinkTopic);
  conversation_ = ThePlatform().dde->Connect(topic.substr(0, bar), topic.substr(bar + 1));
}

void LinkedTextBox::LinkRequest() {
  if (LinkMode() == kLinkNone) throw RuntimeError(failure::kNoDdeChannel);
  Text = conversation_->Request(LinkItem);
}

}  // namespace qb
