#pragma once

#include <chrono>
#include <string>

#include "platform/FileSystem.h"
#include "platform/win32/Win32Paths.h"

namespace qb {

class Win32FileSystem : public FileSystem {
 public:
  /// `root` is the native folder that stands for the drive's root, empty for the real one. `patience` is how
  /// long `Lock` waits for another process.
  explicit Win32FileSystem(const std::string& root = {},
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
  std::optional<std::string> ShortPathName(std::string_view path) override;
  std::optional<FileStamp> Stamp(std::string_view path) override;
  FileStamp ReplaceContent(std::string_view path, const Pieces& content) override;
  std::unique_ptr<FileLock> Lock(std::string_view path) override;

 private:
  std::unique_ptr<FileWriter> Open(std::string_view path, bool append);

  Win32Paths paths_;
  std::chrono::milliseconds patience_;
};

}  // namespace qb
