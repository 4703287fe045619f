#include "platform/win32/Win32FileDialogs.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "platform/ChosenFiles.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Text.h"
#include "runtime/RuntimeError.h"

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

/// What the user has chosen: one path, or the path of a folder and names in it.
struct Choice {
  std::wstring path;
  std::vector<std::string> names;
};

/// Texts that each end with a NUL, up to an empty one.
Choice ChoiceIn(std::wstring_view buffer) {
  const auto take = [&buffer] {
    const std::wstring_view text = buffer.substr(0, buffer.find(L'\0'));
    buffer.remove_prefix(std::min(buffer.size(), text.size() + 1));
    return text;
  };
  Choice choice{std::wstring(take()), {}};
  for (std::wstring_view name = take(); !name.empty(); name = take()) choice.names.push_back(Utf8(name));
  return choice;
}

}  // namespace

void RaiseDialogFailure(std::uint32_t code) {
  switch (code) {
    case 0:
      return;
    case FNERR_BUFFERTOOSMALL:
      throw RuntimeError(failure::kInvalidArgument, {}, "These files are too many to be taken together");
    case FNERR_INVALIDFILENAME:
      throw RuntimeError(failure::kPathFileAccess, {}, "The name of the file is not valid");
    case CDERR_MEMALLOCFAILURE:
    case CDERR_MEMLOCKFAILURE:
    case FNERR_SUBCLASSFAILURE:
      throw RuntimeError(failure::kOutOfMemory);
    default:
      throw RuntimeError(failure::kInvalidArgument, {},
                         fmt::format("The file dialog failed with the code {:#06x}", code));
  }
}

bool Win32FileDialogs::GetOpenFileName(OpenFileRecord& record) {
  const std::wstring filter = Wide(record.filter) + L'\0';
  const std::wstring title = Wide(record.title);
  const std::wstring extension = Wide(record.defaultExtension);
  std::wstring directory;
  if (!record.initialDirectory.empty())
    directory = paths_.Native(record.initialDirectory).value_or(std::wstring{});
  OPENFILENAMEW native{};
  native.lStructSize = sizeof native;
  native.hwndOwner = OwnerOf(record);
  native.lpstrFilter = filter.c_str();
  native.nFilterIndex = record.filterIndex;
  native.lpstrTitle = TextOrNone(title);
  native.lpstrDefExt = TextOrNone(extension);
  // For several files Windows would else show a dialog of another age, which cuts names with a blank.
  const std::uint32_t look = (record.flags & openfile::kAllowMultiSelect) != 0 ? OFN_EXPLORER : 0;
  const KeptCurrentDirectory kept;
  while (true) {
    std::wstring fileName = Buffer(record.fileName);
    std::wstring fileTitle = Buffer(record.fileTitle);
    native.lpstrFile = fileName.data();
    native.nMaxFile = kBufferSize;
    native.lpstrFileTitle = fileTitle.data();
    native.nMaxFileTitle = kBufferSize;
    native.lpstrInitialDir = TextOrNone(directory);
    native.Flags = record.flags | look;
    if (GetOpenFileNameW(&native) == FALSE) {
      RaiseDialogFailure(CommDlgExtendedError());
      return false;
    }
    const Choice choice = ChoiceIn(fileName);
    const std::string path = paths_.Windows(choice.path);
    const std::vector<std::string> refused =
        choice.names.empty() ? std::vector<std::string>{} : NamesThatCannotBeJoined(path, choice.names);
    if (refused.empty()) {
      record.fileName = JoinedNames(path, choice.names);
      record.fileTitle = choice.names.empty() ? UpToNul(fileTitle) : std::string{};
      record.filterIndex = native.nFilterIndex;
      record.flags = native.Flags & ~(look & ~record.flags);
      return true;
    }
    TellNamesThatCannotBeJoined(path, refused);
    directory = choice.path;
  }
}

}  // namespace qb
