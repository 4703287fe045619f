#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace qb {

/// What a file system is asked for.
enum class FileOperation {
  kFind,
  kSearch,
  kRead,
  kOpenForWriting,
  kOpenForAppending,
  kWrite,  ///< of an open file; fails in `Flush`
  kCopy,
  kRemove,
  kCheckRemovable,
  kMakeDirectory,
  kSetAttributes,
  kResolved,
  kShortPathName,
  kStamp,
  kReplaceContent,
  kLock,
};

/// A file system that counts what it is asked for and fails where a test wants it to; all else is passed on.
class FaultyFileSystem : public FileSystem {
 public:
  explicit FaultyFileSystem(FileSystem& real) : real_(&real) {}
  explicit FaultyFileSystem(std::unique_ptr<FileSystem> real) : own_(std::move(real)), real_(own_.get()) {}

  /// From now on the operation raises `number` for every path that holds `pathPart`.
  void Fail(FileOperation operation, long number, std::string pathPart = {});
  /// Nothing fails any more.
  void Heal() { faults_.clear(); }

  /// Runs `action` once, right before the next operation of this kind.
  void BeforeNext(FileOperation operation, std::function<void()> action) {
    actions_[operation] = std::move(action);
  }

  /// How often an operation was asked for since `ForgetCounts`, failed calls included.
  int Count(FileOperation operation) const;
  void ForgetCounts() { counts_.clear(); }

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
  std::string CurrentDirectory() override { return real_->CurrentDirectory(); }
  std::string ProgramDirectory() override { return real_->ProgramDirectory(); }
  std::string Resolved(std::string_view path) override;
  std::optional<std::string> ShortPathName(std::string_view path) override;
  std::optional<FileStamp> Stamp(std::string_view path) override;
  FileStamp ReplaceContent(std::string_view path, const Pieces& content) override;
  std::unique_ptr<FileLock> Lock(std::string_view path) override;

  /// Counts the operation and raises the failure that it shall have. Open files ask here too.
  void Meet(FileOperation operation, std::string_view path);

 private:
  struct Fault {
    FileOperation operation;
    long number;
    std::string pathPart;
  };

  std::unique_ptr<FileSystem> own_;
  FileSystem* real_;
  std::vector<Fault> faults_;
  std::map<FileOperation, std::function<void()>> actions_;
  std::map<FileOperation, int> counts_;
};

/// Puts a faulty file system around the files of `platform`, and profile files that work over it in the place
/// of its own.
FaultyFileSystem& InstallFaultyFiles(Platform& platform);

}  // namespace qb
