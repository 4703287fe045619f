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

/// Without an owner of its own the dialog belongs to the window that the user is in, which then takes no
/// commands until it is answered.
HWND OwnerOf(const OpenFileRecord& record) {
  // A window handle is as long as a pointer, of which the upper half means nothing.
  if (record.owner) return reinterpret_cast<HWND>(static_cast<INT_PTR>(*record.owner));
  return GetActiveWindow();
}

/// The current directory is part of how the program finds files; the dialog changes it while the user looks
/// around.
class KeptCurrentDirectory {
 public:
  KeptCurrentDirectory() : directory_(32768, L'\0') {
    directory_.resize(GetCurrentDirectoryW(static_cast<DWORD>(directory_.size()), directory_.data()));
  }
  KeptCurrentDirectory(const KeptCurrentDirectory&) = delete;
  KeptCurrentDirectory& operator=(const KeptCurrentDirectory&) = delete;
  ~KeptCurrentDirectory() { SetCurrentDirectoryW(directory_.c_str()); }

 private:
  std::wstring directory_;
};

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
  native.hwndOwner = OwnerOf(record);
  native.lpstrFilter = filter.c_str();
  native.nFilterIndex = record.filterIndex;
  native.lpstrFile = fileName.data();
  native.nMaxFile = kBufferSize;
  native.lpstrFileTitle = fileTitle.data();
  native.nMaxFileTitle = kBufferSize;
  native.lpstrInitialDir = TextOrNone(directory);
  native.lpstrTitle = TextOrNone(title);
  native.lpstrDefExt = TextOrNone(extension);
  native.Flags = record.flags;
  const KeptCurrentDirectory kept;
  if (GetOpenFileNameW(&native) == FALSE) return false;
  record.fileName = paths_.Windows(std::wstring_view(fileName).substr(0, fileName.find(L'\0')));
  record.fileTitle = UpToNul(fileTitle);
  record.filterIndex = native.nFilterIndex;
  record.flags = native.Flags;
  return true;
}

}  // namespace qb
