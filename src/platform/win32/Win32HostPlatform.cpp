#include <algorithm>

#include "platform/HostPlatform.h"
#include "platform/win32/Win32FileSystem.h"
#include "platform/win32/Win32Platform.h"
#include "platform/win32/Win32TextCodec.h"

namespace qb {
namespace {

/// Settings are kept apart by a key that is named after the folder.
std::string KeyOf(std::string folder) {
  if (folder.empty()) return {};
  std::replace(folder.begin(), folder.end(), '\\', '|');
  return R"(Software\ORB\Apart\)" + folder;
}

}  // namespace

std::unique_ptr<Platform> MakeHostPlatform(const HostPlatformOptions& options) {
  return MakeWin32Platform({options.root, KeyOf(options.configurationFolder)});
}

std::unique_ptr<FileSystem> MakeHostFileSystem(const std::string& root, std::chrono::milliseconds patience) {
  return std::make_unique<Win32FileSystem>(root, patience);
}

std::unique_ptr<TextCodec> MakeHostTextCodec() {
  return std::make_unique<Win32TextCodec>();
}

}  // namespace qb
