#pragma once

#include <memory>
#include <string>
#include <vector>

#include "office/HelperProcess.h"
#include "office/OfficeUser.h"
#include "support/FolderTest.h"

namespace qb::office {

/// A running helper with its office, shared by the tests of a suite, and a fresh folder with the sample's
/// documents.
class OfficeTest : public FolderTest {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();
  /// With more arguments for the helper, for a suite that needs them.
  static void StartHelper(const std::vector<std::string>& more);
  /// Closes what the test has left open.
  void TearDown() override;

  static HelperProcess& Helper() { return *helper_; }
  static OfficeUser& User() { return *user_; }

  /// Copies a file of the sample's translations, such as "wartung/wartung.doc", and tells its path.
  std::string Sample(const std::string& name, const std::string& as = "");
  /// Where a file of this test stands.
  std::string Path(const std::string& name) const { return Native(name).string(); }

  /// Opens the file; the number of the document. A failure fails the test.
  int Open(const std::string& path, bool readOnly = false);
  /// The error code with which the file cannot be opened; empty if it can.
  std::string OpenError(const std::string& path, bool readOnly = false);
  void Close(int document);

  /// Presses the keys in the document's window, as soon as the office takes it for the active one.
  static void Press(const std::string& path, const std::string& keys);
  /// Waits for a window whose name begins so, and presses the keys in it.
  static bool PressIn(const std::string& window, const std::string& keys);

 private:
  static std::unique_ptr<HelperProcess> helper_;
  static std::unique_ptr<OfficeUser> user_;
  std::vector<int> opened_;
};

}  // namespace qb::office
