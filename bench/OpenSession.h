#pragma once

#include <filesystem>
#include <string_view>

#include "support/WorkflowTest.h"

namespace qb {

/// The running program on a drive of its own, with the scripted toolkit, so that drawing is not measured. The
/// trace is off, as it would write some hundred lines a document.
class OpenSession : public WorkflowTest {
 public:
  static constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";
  using WorkflowTest::Entry;

  /// Starts the program without a package beside a fresh package of `documents` documents.
  explicit OpenSession(int documents);

  /// Opens the package. Raises std::logic_error if not all documents came in.
  void Open();

  /// Marks the document with this number, counted from 1, as completed. Raises std::logic_error if it did not
  /// become so.
  void MarkCompleted(int document);

  std::filesystem::path PackageFile() const { return Native(kPackage); }
  /// A path beside the package for the limit pass.
  std::filesystem::path OtherFile() const { return Native(R"(\pkg\other)"); }

 private:
  void TestBody() override {}

  int documents_;
};

}  // namespace qb
