#include "platform/CachedProfileFiles.h"
#include "platform/HostPlatform.h"
#include "platform/PackageCodePage.h"
#include "platform/linux/HiveRegistry.h"
#include "platform/linux/LinuxApplicationWindows.h"
#include "platform/linux/LinuxApplications.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxDde.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/LinuxHelperPrograms.h"
#include "platform/linux/LinuxShell.h"
#include "platform/linux/LinuxTextCodec.h"

namespace qb {
namespace {

struct ProfileParts {
  explicit ProfileParts(const HostPlatformOptions& options)
      : partFiles(options.root), partRegistry(options.configurationFolder) {}

  LinuxFileSystem partFiles;
  LinuxTextCodec partCodec;
  HiveRegistry partRegistry;
};

/// Profile files that bring what they need, so that any other part of the platform can be replaced.
class LinuxProfileFiles : private ProfileParts, public CachedProfileFiles {
 public:
  explicit LinuxProfileFiles(const HostPlatformOptions& options)
      : ProfileParts(options),
        CachedProfileFiles(partFiles, partCodec, PackageCodePageChooser(partRegistry, partCodec)) {}
};

}  // namespace

std::unique_ptr<Platform> MakeHostPlatform(const HostPlatformOptions& options) {
  auto platform = std::make_unique<Platform>();
  platform->files = std::make_unique<LinuxFileSystem>(options.root);
  platform->codec = std::make_unique<LinuxTextCodec>();
  platform->registry = std::make_unique<HiveRegistry>(options.configurationFolder);
  platform->profiles = std::make_unique<LinuxProfileFiles>(options);
  platform->shell = std::make_unique<LinuxShell>(options.root, options.configurationFolder);
  platform->helpers = std::make_unique<LinuxHelperPrograms>(options.root);
  platform->clock = std::make_unique<LinuxClock>();
  platform->environment = std::make_unique<LinuxEnvironment>();
  platform->windows = std::make_unique<LinuxApplicationWindows>();
  platform->automation = std::make_unique<NoAutomation>();
  platform->dde = std::make_unique<LinuxDde>();
  platform->debugger = std::make_unique<LinuxDebugger>();
  return platform;
}

std::unique_ptr<FileSystem> MakeHostFileSystem(const std::string& root, std::chrono::milliseconds patience) {
  return std::make_unique<LinuxFileSystem>(root, patience);
}

std::unique_ptr<TextCodec> MakeHostTextCodec() {
  return std::make_unique<LinuxTextCodec>();
}

}  // namespace qb
