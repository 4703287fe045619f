#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/TextCodec.h"

namespace qb {

/// Profile files: text files of `[section]` and `KEY=VALUE` lines, in an ANSI code page. Names match
/// regardless of case; blanks around names and values, and one pair of quotes around a value, do not count.
/// Texts are UTF-8.
class ProfileFiles {
 public:
  virtual ~ProfileFiles() = default;

  /// The value of the first such key in the first such section, or `defaultValue` if file, section or key is
  /// missing; cut to `size` - 1 characters.
  virtual std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                              std::string_view defaultValue, std::size_t size,
                                              std::string_view path) = 0;

  /// Number of characters of the value that `GetPrivateProfileString` cuts from.
  virtual std::size_t ValueLength(std::string_view section, std::string_view key,
                                  std::string_view defaultValue, std::string_view path) = 0;

  /// Sets a value; without a value removes the key; without a key removes the section. A missing file,
  /// section or key is made where there is a value. False if the file could not be changed; `LastRefusal`
  /// says why.
  virtual bool WritePrivateProfileString(std::string_view section, std::optional<std::string_view> key,
                                         std::optional<std::string_view> value, std::string_view path) = 0;

  /// The names of all sections that have one, in file order, each followed by a NUL, cut to `size` - 2
  /// characters, and one more NUL at the end.
  virtual std::string GetPrivateProfileSectionNames(std::size_t size, std::string_view path) = 0;

  /// Length of the file in bytes. Inside a batch that of the file as it will be written. Raises 53 if it is
  /// missing.
  virtual std::uint64_t Length(std::string_view path) = 0;

  /// The code page of the file's texts.
  virtual CodePage CodePageOf(std::string_view path) = 0;

  /// Why the last refused write was refused, naming the file; empty if none was refused since
  /// `ForgetRefusal`.
  virtual std::string LastRefusal() = 0;
  virtual void ForgetRefusal() = 0;

  /// Holds the flushes of `path` back until the outermost `EndBatch`. Calls nest. Other writers wait
  /// meanwhile.
  virtual void BeginBatch(std::string_view path) = 0;
  /// False if the changes could not be written; they are then still held and tried again with the next write.
  virtual bool EndBatch() = 0;
};

/// Brackets a bulk change of one profile file. The end of the object ends the batch if `End` was not called.
class ProfileBatch {
 public:
  ProfileBatch(ProfileFiles& profiles, std::string_view path) : profiles_(&profiles) {
    profiles.BeginBatch(path);
  }
  ProfileBatch(const ProfileBatch&) = delete;
  ProfileBatch& operator=(const ProfileBatch&) = delete;
  ~ProfileBatch() {
    if (profiles_ != nullptr) profiles_->EndBatch();
  }
  /// False if the changes could not be written.
  bool End() { return std::exchange(profiles_, nullptr)->EndBatch(); }

 private:
  ProfileFiles* profiles_;
};

}  // namespace qb
