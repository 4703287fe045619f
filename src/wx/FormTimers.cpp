#include "wx/FormTimers.h"

#include "wx/KeepAlive.h"
#include "wx/WxToolkit.h"

namespace qb {

FormTimers::FormTimers(Form& form) {
  for (Control* control : form.Controls()) {
    if (auto* timer = dynamic_cast<Timer*>(control)) tickers_.push_back(std::make_unique<Ticker>(*timer));
  }
  Apply();
}

void FormTimers::Apply() {
  for (const auto& ticker : tickers_) ticker->Follow();
}

void FormTimers::Stop() {
  for (const auto& ticker : tickers_) ticker->wxTimer::Stop();
}

void FormTimers::Ticker::Notify() {
  // A copy: a tick may unload the form, and this with it.
  const std::function<void()> tick = timer_.Tick;
  if (!timer_.Enabled || !tick || IsKeptAlive()) return;
  tick();
  DrawChanges();
}

void FormTimers::Ticker::Follow() {
  const bool wanted = timer_.Enabled && timer_.Interval > 0 && timer_.Tick;
  if (!wanted) {
    Stop();
  } else if (!IsRunning() || GetInterval() != timer_.Interval) {
    Start(timer_.Interval);
  }
}

}  // namespace qb
