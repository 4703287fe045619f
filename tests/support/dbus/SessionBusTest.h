#pragma once

#include <gio/gio.h>

#include <functional>
#include <string>

namespace qb {

/// A message bus of the test's own while it lives; programs that are started find it.
class OwnSessionBus {
 public:
  OwnSessionBus();
  OwnSessionBus(const OwnSessionBus&) = delete;
  OwnSessionBus& operator=(const OwnSessionBus&) = delete;
  ~OwnSessionBus();

  /// Ends the bus before its time.
  void End();

 private:
  GTestDBus* bus_;
  bool runs_ = true;
};

/// A terminology tool on the bus: a process of its own that ends with the object at the latest.
class StandInMultiTerm {
 public:
  /// `mode` says how it answers items that begin with `item`; returns when its name is on the bus.
  explicit StandInMultiTerm(const std::string& mode, const std::string& item = "mt_open#");
  StandInMultiTerm(const StandInMultiTerm&) = delete;
  StandInMultiTerm& operator=(const StandInMultiTerm&) = delete;
  ~StandInMultiTerm();

  /// Where its program stands.
  static std::string Program();

  /// Whether it ends by itself within a while.
  bool Ends();
  /// Ends it without a chance to say anything.
  void Kill();

 private:
  GPid process_ = 0;
};

/// Waits until `happened` says so; false if that takes too long.
bool Eventually(const std::function<bool()>& happened);

}  // namespace qb
