#include "platform/win32/Win32Clipboard.h"

#include <cstring>

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Text.h"
#include "platform/win32/Win32TextCodec.h"

namespace qb {
namespace {

/// The bytes in the kind of memory that the clipboard takes over; null if there is none left.
HGLOBAL Memory(const void* bytes, std::size_t size) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (memory == nullptr) return nullptr;
  std::memcpy(GlobalLock(memory), bytes, size);
  GlobalUnlock(memory);
  return memory;
}

}  // namespace

void Win32Clipboard::SetText(std::string_view text, std::int16_t format) {
  // It is taken over for a window: for none, Windows need not keep what is set.
  if (OpenClipboard(GetActiveWindow()) == FALSE) return;
  EmptyClipboard();
  Win32TextCodec codec;
  // The text format is given as UTF-16, from which the system makes the bytes of any program's code page.
  const bool isText = format == kTextFormat;
  const std::wstring wide = Wide(text);
  const std::string bytes = codec.Encode(text, codec.SystemCodePage());
  const HGLOBAL memory = isText ? Memory(wide.c_str(), (wide.size() + 1) * sizeof(wchar_t))
                                : Memory(bytes.c_str(), bytes.size() + 1);
  const UINT kind = isText ? CF_UNICODETEXT : static_cast<UINT>(static_cast<std::uint16_t>(format));
  if (memory != nullptr && SetClipboardData(kind, memory) == nullptr) GlobalFree(memory);
  CloseClipboard();
}

}  // namespace qb
