#pragma once

#include "platform/TextCodec.h"

namespace qb {

class LinuxTextCodec : public TextCodec {
 public:
  std::string Decode(std::string_view bytes, CodePage codePage) override;
  std::string Encode(std::string_view text, CodePage codePage) override;
  bool CanEncode(std::string_view text, CodePage codePage) override;
  /// UTF-8, unless the locale says otherwise.
  CodePage SystemCodePage() override;
  CodePage CodePageOfLanguage(std::string_view language) override;
};

}  // namespace qb
