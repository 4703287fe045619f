#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qb {

/// A moment in UTC.
struct FileTime {
  std::int64_t seconds = 0;  ///< since 1970-01-01 00:00:00
  std::int32_t nanoseconds = 0;
  bool operator==(const FileTime&) const = default;
};

/// Bits of a file's attributes.
namespace attribute {
inline constexpr unsigned kReadOnly = 1;
inline constexpr unsigned kHidden = 2;
inline constexpr unsigned kSystem = 4;
inline constexpr unsigned kDirectory = 16;
inline constexpr unsigned kArchive = 32;
}  // namespace attribute

struct FileInfo {
  std::string name;         ///< as the folder spells it, without a directory
  unsigned attributes = 0;  ///< bits of `attribute`
  std::uint64_t size = 0;   ///< bytes
  FileTime lastWrite;
  FileTime creation;
};

/// Bytes in pieces that follow one another.
using Pieces = std::vector<std::string_view>;

/// What identifies one state of one file: two equal stamps mean the same content of the same file.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t node = 0;
  std::uint64_t size = 0;
  FileTime lastWrite;
  FileTime lastChange;
  bool operator==(const FileStamp&) const = default;
};

/// Excludes other processes while it lives.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

/// A file being written. Bytes reach the file at once or at the next `Flush`; the end closes it.
class FileWriter {
 public:
  virtual ~FileWriter() = default;
  /// Raises 57 or 61 if the bytes cannot be written.
  virtual void Write(std::string_view bytes) = 0;
  virtual void Flush() = 0;
};

/// The files of the machine. Every path is a Windows path with `\`, UTF-8; a relative one starts in the
/// current directory. A name that is not found as spelled is looked up without regard to case. Failures raise
/// 53 (file not found), 57 (device), 61 (disk full), 70 (permission denied), 75 (path or file access) or 76
/// (path not found), with the path in the description.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// The file or directory of exactly this path (no wildcards); nothing if there is none.
  virtual std::optional<FileInfo> Find(std::string_view path) = 0;

  /// Names of the entries that match `pattern`, whose last component may hold `*` and `?`, in the folder's
  /// order. An empty last component, and so an empty pattern, stands for all. Entries that carry an attribute
  /// of hidden, system and directory come only if `attributes` has it too. An unknown folder gives none.
  virtual std::vector<std::string> Search(std::string_view pattern, unsigned attributes) = 0;

  virtual std::string Read(std::string_view path) = 0;

  /// Opens for writing from the beginning; an existing file is emptied.
  virtual std::unique_ptr<FileWriter> OpenForWriting(std::string_view path) = 0;

  /// Opens for writing at the end; a missing file is made.
  virtual std::unique_ptr<FileWriter> OpenForAppending(std::string_view path) = 0;

  /// Copies content, mode and last write time, over an existing file too. True on success, false for a
  /// file onto itself. A target that could not be written whole stays as it was; a link in its place is
  /// replaced.
  virtual bool Copy(std::string_view source, std::string_view target) = 0;

  virtual void Remove(std::string_view path) = 0;
  /// Raises what would keep the file from being removed. Changes nothing.
  virtual void CheckRemovable(std::string_view path) = 0;
  virtual void MakeDirectory(std::string_view path) = 0;
  /// Only the bits that the file system knows count; on Linux that is the read-only bit.
  virtual void SetAttributes(std::string_view path, unsigned attributes) = 0;

  virtual std::string CurrentDirectory() = 0;
  /// Where the running program's file stands.
  virtual std::string ProgramDirectory() = 0;

  /// The path that is left when links and `.` and `..` are resolved, as far as it exists; what does not exist
  /// is appended with `.` and `..` taken out.
  virtual std::string Resolved(std::string_view path) = 0;

  /// The path by which an old program of this machine opens an existing file or directory: in the short form
  /// of names where the platform has one, else the machine's own path. Nothing if there is no such file.
  virtual std::optional<std::string> ShortPathName(std::string_view path) = 0;

  /// The state of the file, links followed; nothing if there is no file.
  virtual std::optional<FileStamp> Stamp(std::string_view path) = 0;

  /// Gives the file new content, in pieces that follow one another, that reaches the disk whole or not at
  /// all, links resolved, mode kept. A missing file is made. Returns the new state. Raises as told above, and
  /// then the old content stands.
  virtual FileStamp ReplaceContent(std::string_view path, const Pieces& content) = 0;

  /// Holds off every other process that asks for the lock of the same file. Waits a while for another holder;
  /// raises 70 if it does not give way.
  virtual std::unique_ptr<FileLock> Lock(std::string_view path) = 0;
};

}  // namespace qb
