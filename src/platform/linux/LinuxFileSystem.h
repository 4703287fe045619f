#pragma once

#include <chrono>
#include <string>

#include "platform/FileSystem.h"
#include "platform/linux/CaseBlindNames.h"
#include "platform/linux/LinuxPaths.h"

namespace qb {

class LinuxFileSystem : public FileSystem {
 public:
  /// `root` is the native folder that stands for the drive's root, empty for "/". `patience` is how long
  /// `Lock` waits for another process.
  explicit LinuxFileSystem(const std::string& root = {},
                           std::chrono::milliseconds patience = std::chrono::seconds(10))
      : paths_(root), patience_(patience) {}

  std::optional<FileInfo> Find(std::string_view path) override;
  std::vector<std::string> Search(std::string_view pattern, unsigned attributes) override;
  std::string Read(std::string_view path) override;
  std::unique_ptr<FileWriter> OpenForWriting(std::string_view path) override;
  std::unique_ptr<FileWriter> OpenForAppending(std::string_view path) override;
  bool Copy(std::string_view source, std::string_view target) override;
  void Remove(std::string_view path) override;
  void CheckRemovable(std::string_view path) override;
  void MakeDirectory(std::string_view path) override;
  void SetAttributes(std::string_view path, unsigned attributes) override;
  std::string CurrentDirectory() override { return paths_.CurrentDirectory(); }
  std::string ProgramDirectory() override;
  std::string Resolved(std::string_view path) override;
  /// The native path: what other programs of this machine open.
  std::optional<std::string> ShortPathName(std::string_view path) override { return NativeExisting(path); }
  std::optional<FileStamp> Stamp(std::string_view path) override;
  FileStamp ReplaceContent(std::string_view path, const Pieces& content) override;
  std::unique_ptr<FileLock> Lock(std::string_view path) override;

  /// The absolute native path of an existing file or folder; nothing if there is none.
  std::optional<std::string> NativeExisting(std::string_view path);
  /// The native path at which `path` is, or would be made.
  std::string NativeForCreation(std::string_view path);

 private:
  std::unique_ptr<FileWriter> Open(std::string_view path, int flags);

  LinuxPaths paths_;
  CaseBlindNames names_;
  std::chrono::milliseconds patience_;
};

}  // namespace qb
