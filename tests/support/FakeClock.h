#pragma once

#include <chrono>
#include <cstdint>

#include "platform/Clock.h"

namespace qb {

/// A clock that stands still. It starts at 2003-05-17 14:22:09, with local time being UTC.
class FakeClock : public Clock {
 public:
  /// Sets the present moment, given in local time.
  void SetLocalNow(const DateTime& local) { now_ = {SecondsOf(local) - offset_, 0}; }

  /// Moves the present moment.
  void Advance(std::int64_t seconds) { now_.seconds += seconds; }

  /// Local time is UTC plus this many seconds. The present moment keeps its UTC.
  void SetOffset(std::int64_t seconds) { offset_ = seconds; }

  /// The present moment in UTC.
  FileTime Now() const { return now_; }

  DateTime LocalNow() override { return LocalTime(now_); }
  DateTime LocalTime(const FileTime& time) override { return UtcTime({time.seconds + offset_, 0}); }

  DateTime UtcTime(const FileTime& time) override {
    const std::chrono::sys_seconds moment{std::chrono::seconds(time.seconds)};
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss ofDay(moment - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(ofDay.hours().count()),
            static_cast<int>(ofDay.minutes().count()),
            static_cast<int>(ofDay.seconds().count())};
  }

  double SecondsSinceMidnight() override {
    const DateTime local = LocalNow();
    return local.hour * 3600.0 + local.minute * 60.0 + local.second;
  }

 private:
  static std::int64_t SecondsOf(const DateTime& time) {
    const std::chrono::year_month_day date{std::chrono::year(time.year),
                                           std::chrono::month(static_cast<unsigned>(time.month)),
                                           std::chrono::day(static_cast<unsigned>(time.day))};
    const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
    return days * 86400 + time.hour * 3600 + time.minute * 60 + time.second;
  }

  FileTime now_{SecondsOf({2003, 5, 17, 14, 22, 9}), 0};
  std::int64_t offset_ = 0;
};

}  // namespace qb
