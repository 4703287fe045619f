#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/Platform.h"

namespace qb {

/// Where the platform keeps things apart from the machine's own, for tests.
struct HostPlatformOptions {
  std::string root;  ///< native folder that stands for the drive's root; empty: the drive's own
  std::string configurationFolder;  ///< native folder of the settings; empty: the user's own settings
};

/// The operating system's half: everything but message boxes, file dialogs, clipboard and mouse pointer,
/// which the toolkit brings.
std::unique_ptr<Platform> MakeHostPlatform(const HostPlatformOptions& options = {});

/// The files of a drive with this native folder as its root. `patience` is how long `Lock` waits for
/// another process.
std::unique_ptr<FileSystem> MakeHostFileSystem(const std::string& root,
                                               std::chrono::milliseconds patience = std::chrono::seconds(10));

/// The operating system's code pages.
std::unique_ptr<TextCodec> MakeHostTextCodec();

}  // namespace qb
