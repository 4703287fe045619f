#include "platform/win32/Win32FolderSearch.h"

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32Paths.h"
#include "platform/win32/Win32Text.h"

namespace qb {
namespace {

constexpr unsigned kKnownAttributes = attribute::kReadOnly | attribute::kHidden | attribute::kSystem |
                                      attribute::kDirectory | attribute::kArchive;

/// A search of the system; ended with the object.
class FileSearch {
 public:
  explicit FileSearch(const std::wstring& pattern) : handle_(FindFirstFileW(pattern.c_str(), &entry_)) {}
  FileSearch(const FileSearch&) = delete;
  FileSearch& operator=(const FileSearch&) = delete;
  ~FileSearch() {
    if (*this) FindClose(handle_);
  }

  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
  const WIN32_FIND_DATAW& Entry() const { return entry_; }
  bool Next() { return FindNextFileW(handle_, &entry_) != FALSE; }

 private:
  WIN32_FIND_DATAW entry_{};
  HANDLE handle_;
};

FileTime TimeOf(const FILETIME& time) {
  return qb::TimeOf(static_cast<std::uint64_t>(time.dwHighDateTime) << 32U | time.dwLowDateTime);
}

template <class Data>
void FillInfo(FileInfo& info, const Data& data) {
  info.attributes = data.dwFileAttributes & kKnownAttributes;
  info.size = static_cast<std::uint64_t>(data.nFileSizeHigh) << 32U | data.nFileSizeLow;
  info.lastWrite = TimeOf(data.ftLastWriteTime);
  info.creation = TimeOf(data.ftCreationTime);
}

/// What stands at the end of a link; false if it leads nowhere.
bool FillFollowed(FileInfo& info, const std::wstring& native) {
  const SystemHandle file =
      OpenSharedFile(native, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  BY_HANDLE_FILE_INFORMATION data{};
  if (!file || GetFileInformationByHandle(file.Get(), &data) == FALSE) return false;
  FillInfo(info, data);
  return true;
}

}  // namespace

std::optional<FileInfo> InfoOf(const std::wstring& native) {
  if (WithoutPrefix(native).find_first_of(L"*?<>\"") != std::wstring::npos) return std::nullopt;
  std::wstring name = native;
  while (name.ends_with(L'\\')) name.pop_back();
  const bool folderMeant = name.size() < native.size();
  FileInfo info;
  const FileSearch search(name);
  if (search) info.name = Utf8(search.Entry().cFileName);
  const bool followed = !search || (search.Entry().dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (!followed) FillInfo(info, search.Entry());
  // A drive's root comes up in no search.
  if (followed && !FillFollowed(info, native)) return std::nullopt;
  if (folderMeant && (info.attributes & attribute::kDirectory) == 0) return std::nullopt;
  return info;
}

std::vector<std::string> NamesInFolder(const std::wstring& folder, const std::wstring& pattern,
                                       unsigned asked) {
  constexpr unsigned kOnlyIfAsked = attribute::kHidden | attribute::kSystem | attribute::kDirectory;
  std::vector<std::string> names;
  FileSearch search(InFolder(folder, pattern));
  for (bool more = static_cast<bool>(search); more; more = search.Next()) {
    const std::wstring_view name = search.Entry().cFileName;
    if (name == L"." || name == L"..") continue;
    if ((search.Entry().dwFileAttributes & kOnlyIfAsked & ~asked) == 0) names.push_back(Utf8(name));
  }
  return names;
}

}  // namespace qb
