#pragma once

#include "platform/Clock.h"

namespace qb {

class Win32Clock : public Clock {
 public:
  DateTime LocalNow() override;
  DateTime LocalTime(const FileTime& time) override;
  DateTime UtcTime(const FileTime& time) override;
  double SecondsSinceMidnight() override;
};

}  // namespace qb
