#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/CachedProfileFiles.h"
#include "platform/HostPlatform.h"
#include "support/FaultyFileSystem.h"
#include "support/FolderTest.h"

namespace qb {

inline constexpr std::string_view kFile = R"(\pkg\Trans.pxf)";
inline constexpr std::string_view kOther = R"(\pkg\Other.pxf)";
inline constexpr std::size_t kRoom = 255;

/// Profile files on a drive of their own that can be made to fail.
class CachedProfileFilesTest : public FolderTest {
 protected:
  CachedProfileFilesTest() { std::filesystem::create_directory(Native(R"(\pkg)")); }

  std::string Get(std::string_view section, std::string_view key, std::string_view path = kFile) {
    return profiles_.GetPrivateProfileString(section, key, "-", kRoom, path);
  }
  bool Set(std::string_view section, std::string_view key, std::string_view value,
           std::string_view path = kFile) {
    return profiles_.WritePrivateProfileString(section, key, value, path);
  }
  bool Remove(std::string_view section, std::string_view key) {
    return profiles_.WritePrivateProfileString(section, key, std::nullopt, kFile);
  }
  int Count(FileOperation operation) const { return files_.Count(operation); }

  CodePage codePage_ = 1252;
  std::unique_ptr<FileSystem> real_ = MakeHostFileSystem(Root(), std::chrono::milliseconds(50));
  std::unique_ptr<TextCodec> codec_ = MakeHostTextCodec();
  FaultyFileSystem files_{*real_};
  CachedProfileFiles profiles_{files_, *codec_, [this](const ProfileImage&) { return codePage_; }};
};

}  // namespace qb
