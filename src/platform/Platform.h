#pragma once

#include <memory>
#include <string_view>

#include "platform/Applications.h"
#include "platform/Clock.h"
#include "platform/Dde.h"
#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/HelperPrograms.h"
#include "platform/ProfileFiles.h"
#include "platform/Registry.h"
#include "platform/Shell.h"
#include "platform/TextCodec.h"

namespace qb {

/// Everything that the program asks of the operating system and the desktop, one interface each.
struct Platform {
  std::unique_ptr<FileSystem> files;
  std::unique_ptr<TextCodec> codec;
  std::unique_ptr<Registry> registry;
  std::unique_ptr<ProfileFiles> profiles;
  std::unique_ptr<Shell> shell;
  std::unique_ptr<HelperPrograms> helpers;
  std::unique_ptr<MessageBoxes> messageBoxes;
  std::unique_ptr<FileDialogs> fileDialogs;
  std::unique_ptr<Clipboard> clipboard;
  std::unique_ptr<MousePointer> mousePointer;
  std::unique_ptr<Clock> clock;
  std::unique_ptr<Environment> environment;
  std::unique_ptr<ApplicationWindows> windows;
  std::unique_ptr<Automation> automation;
  std::unique_ptr<Dde> dde;
  std::unique_ptr<Debugger> debugger;
};

/// The platform of the process. It must have been installed.
Platform& ThePlatform();

/// Installs `platform` and returns the one before it.
std::unique_ptr<Platform> InstallPlatform(std::unique_ptr<Platform> platform);

/// The key under HKEY_CURRENT_USER that holds the program's settings.
inline constexpr std::string_view kSettingsKey = R"(Software\ORB\Quillbank\Quillbank Translator)";

}  // namespace qb
