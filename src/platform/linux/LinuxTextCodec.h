#pragma once

#include "platform/CodePageCodec.h"

namespace qb {

class LinuxTextCodec : public CodePageCodec {
 public:
  /// UTF-8, unless the locale says otherwise.
  CodePage SystemCodePage() override;

 protected:
  std::unique_ptr<CodePageSource> Source(CodePage codePage) override;
  CodePage CodePageOfLocale() override;
};

}  // namespace qb
