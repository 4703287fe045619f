#pragma once

#include <wx/timer.h>

#include <memory>
#include <vector>

#include "ui/Form.h"
#include "ui/controls/SimpleControls.h"

namespace qb {

/// Runs the timers of a form.
class FormTimers {
 public:
  explicit FormTimers(Form& form);

  /// Follows the timers' intervals and switches. A timer whose interval stays keeps its beat.
  void Apply();
  /// Stops them all for good. One of them may be ticking just now.
  void Stop();

 private:
  class Ticker : public wxTimer {
   public:
    explicit Ticker(Timer& timer) : timer_(timer) {}
    void Notify() override;
    void Follow();

   private:
    Timer& timer_;
  };

  std::vector<std::unique_ptr<Ticker>> tickers_;
};

}  // namespace qb
