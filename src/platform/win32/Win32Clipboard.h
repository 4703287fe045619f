#pragma once

#include "platform/Dialogs.h"

namespace qb {

class Win32Clipboard : public Clipboard {
 public:
  /// A text goes as the bytes of the system's code page; where another program holds the clipboard, nothing
  /// happens.
  void SetText(std::string_view text, std::int16_t format) override;
};

}  // namespace qb
