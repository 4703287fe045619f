#include "platform/win32/Win32Clock.h"

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Files.h"

namespace qb {
namespace {

DateTime Parts(const SYSTEMTIME& time) {
  return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

SYSTEMTIME SystemTime(const FileTime& time) {
  const std::uint64_t ticks = TicksOf(time);
  const FILETIME fileTime{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32U)};
  SYSTEMTIME parts{};
  FileTimeToSystemTime(&fileTime, &parts);
  return parts;
}

}  // namespace

DateTime Win32Clock::LocalNow() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return Parts(now);
}

DateTime Win32Clock::LocalTime(const FileTime& time) {
  const SYSTEMTIME utc = SystemTime(time);
  SYSTEMTIME local{};
  SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local);
  return Parts(local);
}

DateTime Win32Clock::UtcTime(const FileTime& time) {
  return Parts(SystemTime(time));
}

double Win32Clock::SecondsSinceMidnight() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return now.wHour * 3600.0 + now.wMinute * 60.0 + now.wSecond + now.wMilliseconds / 1e3;
}

}  // namespace qb
