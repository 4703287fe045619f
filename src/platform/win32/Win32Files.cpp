#include "platform/win32/Win32Files.h"

#include <algorithm>

#include "platform/win32/SystemHeaders.h"

namespace qb {
namespace {

constexpr std::size_t kWriteStep = 262144;
constexpr std::uint64_t kTicksPerSecond = 10'000'000;
constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;
/// File systems that keep no time of the last change know the last write to two seconds only.
constexpr std::int64_t kCoarseSeconds = 3;

std::uint64_t Joined(DWORD high, DWORD low) {
  return static_cast<std::uint64_t>(high) << 32U | low;
}

std::uint64_t PresentTicks() {
  FILETIME now{};
  GetSystemTimeAsFileTime(&now);
  return Joined(now.dwHighDateTime, now.dwLowDateTime);
}

/// A file written a moment ago on a coarse file system never looks the same, so that it is read again.
FileTime ChangeOf(const FILE_BASIC_INFO& info) {
  if (info.ChangeTime.QuadPart != 0) return TimeOf(static_cast<std::uint64_t>(info.ChangeTime.QuadPart));
  const FileTime written = TimeOf(static_cast<std::uint64_t>(info.LastWriteTime.QuadPart));
  const FileTime now = TimeOf(PresentTicks());
  return now.seconds - written.seconds <= kCoarseSeconds ? now : written;
}

}  // namespace

SystemHandle OpenSharedFile(const std::wstring& native, std::uint32_t access, std::uint32_t disposition,
                            std::uint32_t flags) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return SystemHandle(CreateFileW(native.c_str(), access, kShareAll, nullptr, disposition,
                                  FILE_ATTRIBUTE_NORMAL | flags, nullptr));
}

std::uint32_t WriteAll(const SystemHandle& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto step = static_cast<DWORD>(std::min(bytes.size(), kWriteStep * 16));
    DWORD written = 0;
    if (WriteFile(file.Get(), bytes.data(), step, &written, nullptr) == FALSE) return GetLastError();
    if (written == 0) return ERROR_WRITE_FAULT;
    bytes.remove_prefix(written);
  }
  return ERROR_SUCCESS;
}

std::uint32_t WriteAll(const SystemHandle& file, const Pieces& pieces) {
  std::string gathered;
  gathered.reserve(kWriteStep);
  for (const std::string_view piece : pieces) {
    if (gathered.size() + piece.size() > kWriteStep) {
      if (const std::uint32_t error = WriteAll(file, gathered); error != ERROR_SUCCESS) return error;
      gathered.clear();
    }
    if (piece.size() <= kWriteStep) {
      gathered.append(piece);
    } else if (const std::uint32_t error = WriteAll(file, piece); error != ERROR_SUCCESS) {
      return error;
    }
  }
  return WriteAll(file, gathered);
}

std::optional<FileStamp> StampOf(const SystemHandle& file) {
  BY_HANDLE_FILE_INFORMATION info{};
  FILE_BASIC_INFO basic{};
  if (GetFileInformationByHandle(file.Get(), &info) == FALSE ||
      GetFileInformationByHandleEx(file.Get(), FileBasicInfo, &basic, sizeof basic) == FALSE ||
      (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return std::nullopt;
  }
  FileStamp stamp;
  stamp.device = info.dwVolumeSerialNumber;
  stamp.node = Joined(info.nFileIndexHigh, info.nFileIndexLow);
  stamp.size = Joined(info.nFileSizeHigh, info.nFileSizeLow);
  stamp.lastWrite = TimeOf(static_cast<std::uint64_t>(basic.LastWriteTime.QuadPart));
  stamp.lastChange = ChangeOf(basic);
  return stamp;
}

std::uint32_t AttributesOf(const std::wstring& native) {
  const DWORD attributes = GetFileAttributesW(native.c_str());
  return attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes;
}

bool IsDirectory(const std::wstring& native) {
  return (AttributesOf(native) & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsReadOnly(const std::wstring& native) {
  return (AttributesOf(native) & FILE_ATTRIBUTE_READONLY) != 0;
}

FileTime TimeOf(std::uint64_t ticks) {
  return {static_cast<std::int64_t>(ticks / kTicksPerSecond) - kSecondsTo1970,
          static_cast<std::int32_t>(ticks % kTicksPerSecond * 100)};
}

std::uint64_t TicksOf(const FileTime& time) {
  return static_cast<std::uint64_t>(time.seconds + kSecondsTo1970) * kTicksPerSecond +
         static_cast<std::uint64_t>(time.nanoseconds / 100);
}

}  // namespace qb
