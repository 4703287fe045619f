#pragma once

#include "platform/CodePageCodec.h"

namespace qb {

class Win32TextCodec : public CodePageCodec {
 public:
  /// The ANSI code page of the system.
  CodePage SystemCodePage() override;

 protected:
  std::unique_ptr<CodePageSource> Source(CodePage codePage) override;
  CodePage CodePageOfLocale() override;
};

}  // namespace qb
