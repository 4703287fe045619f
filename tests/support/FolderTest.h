#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace qb {

/// A fresh folder for one test, which goes with it and stands for the root of a drive.
///
/// Paths are Windows paths from that root: `\pkg\Trans.pxf`.
class FolderTest : public ::testing::Test {
 protected:
  FolderTest();
  ~FolderTest() override;

  std::string Root() const { return root_.string(); }
  /// Where a path stands on the machine.
  std::filesystem::path Native(std::string_view path) const;
  /// Writes a file past the platform and makes the folders that it needs.
  void Put(std::string_view path, std::string_view bytes) const;
  /// The bytes of a file; a missing one fails the test.
  std::string Content(std::string_view path) const;
  bool Exists(std::string_view path) const;

  /// Waits until the files written so far no longer count as just written, so that their stamps are trusted.
  static void LetFilesSettle();

 private:
  std::filesystem::path root_;
};

}  // namespace qb
