#include "wx/SessionEnd.h"

#include <wx/app.h>
#include <wx/event.h>

#ifdef __WXGTK__
#include <glib-unix.h>

#include <csignal>
#endif

namespace qb {
namespace {

std::function<void()> watcher;

#ifdef __WXGTK__
gboolean OnSignal(gpointer) {
  watcher();
  return G_SOURCE_CONTINUE;
}
#endif

}  // namespace

void WatchSessionEnd(std::function<void()> ended) {
  watcher = std::move(ended);
  wxTheApp->Bind(wxEVT_END_SESSION, [](wxCloseEvent&) { watcher(); });
#ifdef __WXGTK__
  g_unix_signal_add(SIGTERM, OnSignal, nullptr);
  g_unix_signal_add(SIGINT, OnSignal, nullptr);
#endif
}

}  // namespace qb
