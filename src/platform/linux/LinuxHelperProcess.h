#pragma once

#include <glib.h>
#include <sys/types.h>

#include <string>

#include "platform/HelperPrograms.h"
#include "platform/linux/FileDescriptor.h"

namespace qb {

/// A running helper: a socket to its standard input, a pipe from its standard output, and a descriptor that
/// tells of its end even if the pipe lives on in a child of the helper.
class LinuxHelperProcess final : public HelperProcess {
 public:
  struct Ends {
    pid_t process = 0;
    FileDescriptor input;
    FileDescriptor output;
    FileDescriptor end;
  };
  LinuxHelperProcess(Ends ends, HelperEvents events, std::size_t longestLine);
  LinuxHelperProcess(const LinuxHelperProcess&) = delete;
  LinuxHelperProcess& operator=(const LinuxHelperProcess&) = delete;
  ~LinuxHelperProcess() override;

  void Send(std::string_view line) override;
  bool Wait(std::int32_t milliseconds) override;
  void Kill() override;

 private:
  static gboolean OnOutput(gint, GIOCondition, gpointer self);
  static gboolean OnEnd(gint, GIOCondition, gpointer self);
  static void Remove(guint& source);
  void Write();
  void Read();
  void Deliver();
  void Finish();

  Ends ends_;
  HelperEvents events_;
  std::size_t longestLine_;
  std::string unsent_;
  std::string unread_;
  std::size_t begin_ = 0;     ///< where in `unread_` the next line begins
  std::size_t searched_ = 0;  ///< no line that has not been handed on ends before
  bool outputOpen_ = true;
  bool ended_ = false;
  guint outputSource_ = 0;
  guint endSource_ = 0;
};

}  // namespace qb
