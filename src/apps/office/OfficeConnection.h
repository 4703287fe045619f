#pragma once

#include <chrono>
#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <functional>
#include <memory>
#include <string>

#include "apps/office/Failure.h"
#include "apps/office/Happenings.h"
#include "apps/office/WorkThread.h"

namespace qb::office {

/// The line to the running office. A call to the office has no time limit of its own, so the thread that uses
/// this object makes none: another thread does, and this one waits no longer than it has patience.
class OfficeConnection {
 public:
  /// Begins to connect to the named pipe, again and again until it is there. `happenings` outlives this
  /// object and hears of the loss of the line.
  OfficeConnection(std::string pipe, Happenings& happenings);
  OfficeConnection(const OfficeConnection&) = delete;
  OfficeConnection& operator=(const OfficeConnection&) = delete;
  /// Cuts the line, which ends all calls that have not come back.
  ~OfficeConnection();

  /// Waits for the connection; false if it is not there in time.
  bool WaitUntilUp(std::chrono::milliseconds patience);
  /// Whether the office has gone, or has said that it goes.
  bool IsLost() const;
  /// How a request fails that finds it so: "ended" if its user has ended it, "office" if it has died.
  Failure Loss() const;

  /// Runs `work` on the office's main thread: only there may it touch windows. Raises `Failure`: what `work`
  /// raised, or as `Loss` tells if the office went, "office" if it did not answer in time. In the last case
  /// `work` may still run later, so it owns what it uses, and `undo`, if given, runs right after it.
  void Run(std::function<void()> work, std::chrono::milliseconds patience, std::function<void()> undo = {});

  /// Only for use inside `work`.
  com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> Context() const;
  com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2> Desktop() const;
  /// Holds what the office's events bear, closed or not, for as long as the line stands. Else the last one to
  /// let go of it can be the office's thread that writes to us, after it has sent the event: it would end the
  /// document, and wait with that for the main thread, which waits for what that thread is to write next.
  void Keep(const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& borne) const;

  /// What both sides of a call share.
  struct Line;

 private:
  void Connect(const std::string& pipe);

  std::shared_ptr<Line> line_;
  WorkThread caller_;
};

}  // namespace qb::office
