#pragma once

#include <cstdint>
#include <string>

namespace qb {

/// Documents of a running Visio 11 session that are still open; no command runs while it is above 0.
extern std::int16_t gVisioWindows;

/// The moment the package was opened, 14 digits; a file written later counts as changed.
extern std::string gSessionStamp;

/// User name of the options.
extern std::string gUserID;

/// Switch both timers of the main window off and on, so that no poll runs while a document is handed over.
void StopTimers();
void StartTimers();

/// Keeps the timers off while it lives.
class TimersOff {
 public:
  TimersOff() { StopTimers(); }
  TimersOff(const TimersOff&) = delete;
  TimersOff& operator=(const TimersOff&) = delete;
  ~TimersOff() { StartTimers(); }
};

/// Whether a Visio of version 11 runs. Starts none; failures answer false.
bool IsVisio11Running();

/// Whether `stamp`, 14 digits, is later than `gSessionStamp`.
bool IsLaterThanSession(const std::string& stamp);

}  // namespace qb
