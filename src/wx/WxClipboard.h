#pragma once

#include "platform/Dialogs.h"

namespace qb {

/// The desktop's clipboard. It takes plain text only; another format raises 5, a clipboard that another
/// program holds raises 70.
class WxClipboard : public Clipboard {
 public:
  void SetText(std::string_view text, std::int16_t format) override;
};

}  // namespace qb
