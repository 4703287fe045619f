#pragma once

#include <memory>
#include <string>

#include "platform/Platform.h"

namespace qb {

struct Win32PlatformOptions {
  std::string root;  ///< native folder that stands for a path's single leading `\`; empty: the drive
  std::string registryFolder;  ///< key of HKEY_CURRENT_USER that holds the hives; empty: the system's own
};

/// The operating system's half: everything but message boxes and mouse pointer, which the toolkit brings.
std::unique_ptr<Platform> MakeWin32Platform(const Win32PlatformOptions& options = {});

}  // namespace qb
