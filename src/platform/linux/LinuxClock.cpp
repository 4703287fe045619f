#include "platform/linux/LinuxClock.h"

#include <ctime>

namespace qb {
namespace {

DateTime Parts(const tm& time) {
  return {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec};
}

timespec Now() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return now;
}

}  // namespace

DateTime LinuxClock::LocalNow() {
  return LocalTime({Now().tv_sec, 0});
}

DateTime LinuxClock::LocalTime(const FileTime& time) {
  const time_t seconds = time.seconds;
  tm parts{};
  localtime_r(&seconds, &parts);
  return Parts(parts);
}

DateTime LinuxClock::UtcTime(const FileTime& time) {
  const time_t seconds = time.seconds;
  tm parts{};
  gmtime_r(&seconds, &parts);
  return Parts(parts);
}

double LinuxClock::SecondsSinceMidnight() {
  const timespec now = Now();
  const DateTime local = LocalTime({now.tv_sec, 0});
  return local.hour * 3600.0 + local.minute * 60.0 + local.second + static_cast<double>(now.tv_nsec) / 1e9;
}

}  // namespace qb
