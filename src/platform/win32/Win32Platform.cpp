#include "platform/win32/Win32Platform.h"

#include "platform/CachedProfileFiles.h"
#include "platform/PackageCodePage.h"
#include "platform/win32/Win32ApplicationWindows.h"
#include "platform/win32/Win32Automation.h"
#include "platform/win32/Win32Clipboard.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32Dde.h"
#include "platform/win32/Win32Environment.h"
#include "platform/win32/Win32FileDialogs.h"
#include "platform/win32/Win32FileSystem.h"
#include "platform/win32/Win32Registry.h"
#include "platform/win32/Win32Shell.h"
#include "platform/win32/Win32TextCodec.h"

namespace qb {
namespace {

struct ProfileParts {
  explicit ProfileParts(const Win32PlatformOptions& options)
      : partFiles(options.root), partRegistry(options.registryFolder) {}

  Win32FileSystem partFiles;
  Win32TextCodec partCodec;
  Win32Registry partRegistry;
};

/// Profile files that bring what they need, so that any other part of the platform can be replaced.
class Win32ProfileFiles : private ProfileParts, public CachedProfileFiles {
 public:
  explicit Win32ProfileFiles(const Win32PlatformOptions& options)
      : ProfileParts(options),
        CachedProfileFiles(partFiles, partCodec, PackageCodePageChooser(partRegistry, partCodec)) {}
};

}  // namespace

std::unique_ptr<Platform> MakeWin32Platform(const Win32PlatformOptions& options) {
  auto platform = std::make_unique<Platform>();
  platform->files = std::make_unique<Win32FileSystem>(options.root);
  platform->codec = std::make_unique<Win32TextCodec>();
  platform->registry = std::make_unique<Win32Registry>(options.registryFolder);
  platform->profiles = std::make_unique<Win32ProfileFiles>(options);
  platform->shell = std::make_unique<Win32Shell>(options.root);
  platform->fileDialogs = std::make_unique<Win32FileDialogs>(options.root);
  platform->clipboard = std::make_unique<Win32Clipboard>();
  platform->clock = std::make_unique<Win32Clock>();
  platform->environment = std::make_unique<Win32Environment>();
  platform->windows = std::make_unique<Win32ApplicationWindows>();
  platform->automation = std::make_unique<Win32Automation>();
  platform->dde = std::make_unique<Win32Dde>();
  platform->debugger = std::make_unique<Win32Debugger>();
  return platform;
}

}  // namespace qb
