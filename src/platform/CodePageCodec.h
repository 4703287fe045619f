#pragma once

#include <memory>

#include "platform/CodePageTable.h"
#include "platform/TextCodec.h"

namespace qb {

inline constexpr CodePage kWestern = 1252;

/// Converts by tables that are read from the system's own knowledge of a code page when it is first used. A
/// code page that cannot hold profile files, since a byte of ASCII may be part of another character there, or
/// that is unknown counts as 1252.
class CodePageCodec : public TextCodec {
 public:
  std::string Decode(std::string_view bytes, CodePage codePage) override;
  std::string Encode(std::string_view text, CodePage codePage) override;
  bool CanEncode(std::string_view text, CodePage codePage) override;
  CodePage CodePageOfLanguage(std::string_view language) override;

 protected:
  /// Nothing if the system does not know the code page.
  virtual std::unique_ptr<CodePageSource> Source(CodePage codePage) = 0;
  /// The ANSI code page of the user's locale, or 1252 where it has none.
  virtual CodePage CodePageOfLocale() = 0;

 private:
  const CodePageTable& Table(CodePage codePage);
};

}  // namespace qb
