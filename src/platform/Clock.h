#pragma once

#include <cstdint>

#include "platform/FileSystem.h"

namespace qb {

struct DateTime {
  int year = 0;
  int month = 0;   ///< 1 to 12
  int day = 0;     ///< 1 to 31
  int hour = 0;    ///< 0 to 23
  int minute = 0;  ///< 0 to 59
  int second = 0;  ///< 0 to 59
  bool operator==(const DateTime&) const = default;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime LocalNow() = 0;
  virtual DateTime LocalTime(const FileTime& time) = 0;
  virtual DateTime UtcTime(const FileTime& time) = 0;
  virtual double SecondsSinceMidnight() = 0;
};

}  // namespace qb
