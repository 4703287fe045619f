#pragma once

#include <memory>
#include <string>

#include "platform/Platform.h"

namespace qb {

struct LinuxPlatformOptions {
  std::string root;                 ///< native folder that stands for the drive's root; empty: "/"
  std::string configurationFolder;  ///< native folder of the hive file; empty: the user's own
};

/// The operating system's half: everything but message boxes, file dialogs, clipboard and mouse pointer,
/// which the toolkit brings.
std::unique_ptr<Platform> MakeLinuxPlatform(const LinuxPlatformOptions& options = {});

}  // namespace qb
