#pragma once

#include <sys/types.h>

#include <string>

#include "apps/office/Descriptor.h"

namespace qb::office {

/// The office's launcher, which lives as long as the office that it has started. If an office with this
/// profile runs already, the launcher tells it the name of the pipe and ends with 0.
class OfficeProcess {
 public:
  /// Starts `soffice` with the profile folder; it will listen on the named pipe. Raises std::system_error.
  OfficeProcess(const std::string& soffice, const std::string& profile, const std::string& pipe);
  OfficeProcess(const OfficeProcess&) = delete;
  OfficeProcess& operator=(const OfficeProcess&) = delete;
  /// Leaves the process as it is.
  ~OfficeProcess() = default;

  /// Whether it has ended; `Status` then tells how.
  bool HasEnded();
  /// The exit status, or 128 and the number of the signal that ended it.
  int Status() const { return status_; }
  /// Ends launcher and office at once. Only for one that nobody can have worked in.
  void Kill();

 private:
  pid_t launcher_ = -1;
  int status_ = -1;
};

/// A name for a pipe that no one can guess.
std::string NewPipeName();
/// Removes what a killed office leaves of its pipe.
void RemovePipe(const std::string& pipe);

}  // namespace qb::office
