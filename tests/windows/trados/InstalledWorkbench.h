#pragma once

#include <string>

namespace qb {

/// The Workbench as a program that the machine's registry names for its class, for as long as the object
/// lives.
class InstalledWorkbench {
 public:
  InstalledWorkbench();
  InstalledWorkbench(const InstalledWorkbench&) = delete;
  InstalledWorkbench& operator=(const InstalledWorkbench&) = delete;
  ~InstalledWorkbench();

  /// The class is there, its program is this file now.
  void SetProgram(const std::wstring& file);
  /// Takes the class away.
  void Remove();

 private:
  std::wstring classKey_;
};

/// What the running Workbench was told to open last, as "file|user|left out|mode"; "none runs" without one.
/// Needs the automation of Windows in the platform.
std::string OpenedByTheWorkbench();

}  // namespace qb
