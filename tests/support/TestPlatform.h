#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Platform.h"
#include "support/FakeClock.h"
#include "support/ScriptedBoxes.h"

namespace qb {

/// Hands a new object of `Implementation` to `owner` and returns it.
template <class Implementation, class Interface>
Implementation* Install(std::unique_ptr<Interface>& owner) {
  auto object = std::make_unique<Implementation>();
  Implementation* const installed = object.get();
  owner = std::move(object);
  return installed;
}

/// Every test starts with a real platform whose drive is a fresh folder, with scripted boxes and dialogs, and
/// with the state of a fresh process. The folder goes with the test. A question that the test had not
/// scripted fails it.
///
/// Paths are Windows paths from the drive's root: `\pkg\Trans.pxf`.
class PlatformTest : public ::testing::Test {
 protected:
  PlatformTest();
  ~PlatformTest() override;
  void TearDown() override;

  ScriptedBoxes& Boxes() { return *boxes_; }
  ScriptedFileDialogs& Dialogs() { return *dialogs_; }
  RecordingClipboard& TheClipboard() { return *clipboard_; }
  RecordingPointer& Pointer() { return *pointer_; }

  /// Puts a clock that stands still in the place of the real one.
  FakeClock& UseFakeClock();

  /// Writes a file past the platform and makes the folders that it needs.
  void Write(std::string_view path, std::string_view bytes);
  /// The bytes of a file; a missing one fails the test.
  std::string Bytes(std::string_view path) const;
  bool Exists(std::string_view path) const;
  void MakeFolder(std::string_view path);

  /// Where a path stands on the machine.
  std::filesystem::path Native(std::string_view path) const;

 private:
  std::filesystem::path folder_;
  std::unique_ptr<Platform> before_;
  ScriptedBoxes* boxes_ = nullptr;
  ScriptedFileDialogs* dialogs_ = nullptr;
  RecordingClipboard* clipboard_ = nullptr;
  RecordingPointer* pointer_ = nullptr;
};

}  // namespace qb
