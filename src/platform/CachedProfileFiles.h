#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/HeldProfile.h"
#include "platform/ProfileFiles.h"
#include "platform/TextCodec.h"

namespace qb {

/// Profile files over a file system. The files used last are held parsed and looked at again at each call; a
/// write reaches the disk whole or not at all, under the file's lock.
class CachedProfileFiles : public ProfileFiles {
 public:
  /// `chooser` is asked each time a file is read.
  CachedProfileFiles(FileSystem& files, TextCodec& codec, CodePageChooser chooser);

  std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                      std::string_view defaultValue, std::size_t size,
                                      std::string_view path) override;
  std::size_t ValueLength(std::string_view section, std::string_view key, std::string_view defaultValue,
                          std::string_view path) override;
  bool WritePrivateProfileString(std::string_view section, std::optional<std::string_view> key,
                                 std::optional<std::string_view> value, std::string_view path) override;
  std::string GetPrivateProfileSectionNames(std::size_t size, std::string_view path) override;
  std::uint64_t Length(std::string_view path) override;
  CodePage CodePageOf(std::string_view path) override;
  std::string LastRefusal() override { return lastRefusal_; }
  void ForgetRefusal() override { lastRefusal_.clear(); }
  void BeginBatch(std::string_view path) override;
  bool EndBatch() override;

 private:
  HeldProfile& Held(std::string_view path);
  HeldProfile& Fresh(std::string_view path);
  std::optional<std::string_view> Value(const HeldProfile& profile, std::string_view section,
                                        std::string_view key);
  void Refuse(std::string_view path, std::string_view reason);

  FileSystem& files_;
  TextCodec& codec_;
  CodePageChooser chooser_;
  std::vector<std::unique_ptr<HeldProfile>> held_;  // the one used last comes first
  std::vector<HeldProfile*> batches_;               // the innermost one comes last
  std::string lastRefusal_;
};

}  // namespace qb
