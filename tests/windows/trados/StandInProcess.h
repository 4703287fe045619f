#pragma once

#include <functional>
#include <string>

namespace qb {

/// Waits until `happened` says so; false if that takes too long. Window messages run meanwhile.
bool Eventually(const std::function<bool()>& happened);

/// Whether there is a window of this class, or of this title.
bool HasWindow(const wchar_t* windowClass, const wchar_t* title = nullptr);

/// A program of this folder that runs beside the test, and ends with the object at the latest.
class StandInProcess {
 public:
  /// `program` is its name without the extension.
  StandInProcess(const std::wstring& program, const std::wstring& arguments);
  StandInProcess(const StandInProcess&) = delete;
  StandInProcess& operator=(const StandInProcess&) = delete;
  ~StandInProcess();

  /// Whether it ends by itself within a while.
  bool Ends();
  bool Runs();
  /// Ends it without a chance to say anything.
  void Kill();

 private:
  void* process_ = nullptr;
};

/// The full path of a program of this folder.
std::wstring StandInPath(const std::wstring& program);

/// What the running Workbench was told to open last, as "file|user|left out|mode"; "none runs" without one.
/// Needs the automation of Windows in the platform.
std::string OpenedByTheWorkbench();

}  // namespace qb
