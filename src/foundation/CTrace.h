#pragma once

#include <fmt/format.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/FileSystem.h"

namespace qb {

/// The diagnostic trace: every line goes to a file and to the trace viewer's window.
class CTrace {
 public:
  CTrace();
  CTrace(const CTrace&) = delete;
  CTrace& operator=(const CTrace&) = delete;
  ~CTrace();

  std::int16_t Level = 0;     ///< highest level that is still traced
  std::string App = "ORBQB";  ///< tag of the sending application
  bool Active = false;        ///< while false nothing goes anywhere

  /// Empties the file and writes to it from now on; an empty name opens none. Failures are not reported.
  void OpenLog(std::string_view fileName);
  void CloseLog();

  /// Whether a line of `level` goes out now.
  bool Wants(int level) const { return Active && level <= Level; }

  void Trace(std::int16_t level, std::string_view module, std::string_view procedure, std::string_view text);

 private:
  void WriteLine(std::string_view module, std::string_view procedure, std::string_view text);
  void SendToViewer(std::string_view module, std::string_view procedure, std::string_view text);

  bool logOpen_ = false;
  bool logUsable_ = false;
  std::unique_ptr<FileWriter> file_;
  std::uintptr_t viewer_ = 0;
  DateTime timeOfText_;  ///< the second that `timeText_` states
  std::string timeText_;
  std::string line_;  ///< keeps its storage from line to line
};

/// The trace of the process; absent before the start and after the end.
extern std::unique_ptr<CTrace> gTrace;

/// Traces through `gTrace`, if there is one. The text is only made when the line goes out.
template <class... Parameters>
void Trace(int level, std::string_view module, std::string_view procedure,
           fmt::format_string<Parameters...> text, Parameters&&... parameters) {
  if (gTrace == nullptr || !gTrace->Wants(level)) return;
  gTrace->Trace(static_cast<std::int16_t>(level), module, procedure,
                fmt::format(text, std::forward<Parameters>(parameters)...));
}

/// Traces `err: '<number>' '<description>'` of the pending error at level 1.
void TracePendingError(std::string_view module, std::string_view procedure);

/// Writes the enter mark of a procedure at its creation and the leave mark at its end, both at level 2.
class TracedProcedure {
 public:
  TracedProcedure(std::string_view module, std::string_view procedure)
      : module_(module), procedure_(procedure) {
    Trace(2, module_, procedure_, "->");
  }
  TracedProcedure(const TracedProcedure&) = delete;
  TracedProcedure& operator=(const TracedProcedure&) = delete;
  ~TracedProcedure();

 private:
  std::string_view module_;
  std::string_view procedure_;
};

}  // namespace qb
