#include "platform/win32/Win32FileDialogs.h"

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Text.h"

namespace qb {
namespace {

constexpr std::size_t kBufferSize = 2048;

/// `text` filled up with NULs.
std::wstring Buffer(std::string_view text) {
  std::wstring buffer = Wide(text);
  buffer.resize(kBufferSize - 1);
  buffer.push_back(L'\0');
  return buffer;
}

std::string UpToNul(const std::wstring& buffer) {
  return Utf8(std::wstring_view(buffer).substr(0, buffer.find(L'\0')));
}

}  // namespace

bool Win32FileDialogs::GetOpenFileName(OpenFileRecord& record) {
  const std::wstring filter = Wide(record.filter) + L'\0';
  std::wstring fileName = Buffer(record.fileName);
  std::wstring fileTitle = Buffer(record.fileTitle);
  const std::wstring directory = record.initialDirectory.empty()
                                     ? std::wstring{}
                                     : paths_.Native(record.initialDirectory).value_or(std::wstring{});
  const std::wstring title = Wide(record.title);
  const std::wstring extension = Wide(record.defaultExtension);
  OPENFILENAMEW native{};
  native.lStructSize = sizeof native;
  // A window handle is as long as a pointer, of which the upper half means nothing.
  native.hwndOwner = reinterpret_cast<HWND>(static_cast<INT_PTR>(record.owner.value_or(0)));
  native.lpstrFilter = filter.c_str();
  native.nFilterIndex = record.filterIndex;
  native.lpstrFile = fileName.data();
  native.nMaxFile = kBufferSize;
  native.lpstrFileTitle = fileTitle.data();
  native.nMaxFileTitle = kBufferSize;
  native.lpstrInitialDir = TextOrNone(directory);
  native.lpstrTitle = TextOrNone(title);
  native.lpstrDefExt = TextOrNone(extension);
  // The program's current directory is part of how it finds files, so the dialog leaves it alone.
  native.Flags = record.flags | OFN_NOCHANGEDIR;
  if (GetOpenFileNameW(&native) == FALSE) return false;
  record.fileName = paths_.Windows(std::wstring_view(fileName).substr(0, fileName.find(L'\0')));
  record.fileTitle = UpToNul(fileTitle);
  record.filterIndex = native.nFilterIndex;
  record.flags =
      native.Flags & ~static_cast<DWORD>((record.flags & OFN_NOCHANGEDIR) == 0 ? OFN_NOCHANGEDIR : 0);
  return true;
}

}  // namespace qb
