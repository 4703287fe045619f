#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/ProfileImage.h"
#include "platform/ProfileJournal.h"
#include "platform/TextCodec.h"

namespace qb {

/// Tells the code page of a profile file by what the file says. Not asked for one that is marked as UTF-8.
using CodePageChooser = std::function<CodePage(const ProfileImage&)>;

/// One profile file held parsed: the file as it is on the disk, and the changes that have not got there yet.
class HeldProfile {
 public:
  HeldProfile(FileSystem& files, TextCodec& codec, const CodePageChooser& chooser, std::string path)
      : files_(files), codec_(codec), chooser_(chooser), path_(std::move(path)) {}

  const std::string& Path() const { return path_; }
  const ProfileImage& Image() const { return image_; }
  CodePage TextCodePage() const { return codePage_; }
  /// Whether the file was there when last looked at.
  bool Exists() const { return stamp_.has_value(); }
  /// Whether something is held here that another object would not know.
  bool MustStay() const { return batches_ > 0 || !journal_.Empty(); }
  bool InBatch() const { return batches_ > 0; }

  /// Reads the file if it is not the one last read. A file that cannot be read counts as empty until it can.
  /// Inside a batch only the first call looks.
  void Refresh();

  /// Makes a change without an objection, after `Refresh`; outside a batch it is on the disk afterwards.
  /// Raises what hinders it, and then the change is forgotten.
  void Change(const ProfileChange& change);

  void BeginBatch();
  /// Writes what the batch has changed when the outermost one ends. Raises what hinders it; the changes are
  /// then kept for the next write.
  void EndBatch();

 private:
  void Verify();
  void Load(const std::optional<FileStamp>& stamp);
  void Forget();
  void Flush();

  FileSystem& files_;
  TextCodec& codec_;
  const CodePageChooser& chooser_;
  std::string path_;
  ProfileImage image_;
  CodePage codePage_ = kUtf8;
  bool loaded_ = false;             // the image is that of `stamp_`
  bool young_ = false;              // the file may have changed since without a new stamp
  std::optional<FileStamp> stamp_;  // none: there was no file
  ProfileJournal journal_;
  int batches_ = 0;
  std::unique_ptr<FileLock> lock_;  // of the batch
};

}  // namespace qb
