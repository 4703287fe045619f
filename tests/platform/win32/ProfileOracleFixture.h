#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/CachedProfileFiles.h"
#include "platform/win32/SystemHandle.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32FileSystem.h"
#include "platform/win32/Win32TextCodec.h"
#include "support/FolderTest.h"

namespace qb {

/// The same calls through our profile files and through the system's own functions, on two copies of one
/// file.
class ProfileOracleTest : public FolderTest {
 protected:
  static constexpr std::string_view kOurs = R"(\ours.ini)";

  std::string Bytes(std::string_view text) { return codec_.Encode(text, GetACP()); }
  std::string Text(std::string_view bytes) { return codec_.Decode(bytes, GetACP()); }

  /// A new name for each file, so that nothing is remembered of another one.
  void Begin(std::string_view bytes) {
    theirs_ = R"(\theirs)" + std::to_string(++files_) + ".ini";
    Put(kOurs, bytes);
    Put(theirs_, bytes);
    native_ = Native(theirs_).string();
  }

  /// Lets the file count as just written, so that the system reads it and does not answer from memory.
  void Touch() const {
    const SystemHandle file(CreateFileA(native_.c_str(), FILE_WRITE_ATTRIBUTES,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                        nullptr));
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    if (file) SetFileTime(file.Get(), nullptr, nullptr, &now);
  }

  std::string TheirValue(const std::string& section, const std::string& key, const std::string& otherwise,
                         std::size_t size) {
    Touch();
    std::string buffer(size + 1, '#');
    const DWORD length =
        GetPrivateProfileStringA(Bytes(section).c_str(), Bytes(key).c_str(), Bytes(otherwise).c_str(),
                                 buffer.data(), static_cast<DWORD>(size), native_.c_str());
    EXPECT_TRUE(size == 0 || buffer[length] == '\0');
    EXPECT_EQ(buffer[size], '#');
    return Text(buffer.substr(0, length));
  }

  std::string TheirSectionNames(std::size_t size) {
    Touch();
    std::string buffer(size + 1, '#');
    const DWORD length =
        GetPrivateProfileSectionNamesA(buffer.data(), static_cast<DWORD>(size), native_.c_str());
    EXPECT_TRUE(size == 0 || buffer[length] == '\0');
    EXPECT_EQ(buffer[size], '#');
    return Text(buffer.substr(0, length));
  }

  bool TheirWrite(const std::string& section, const std::optional<std::string>& key,
                  const std::optional<std::string>& value) {
    Touch();
    const std::string keyBytes = Bytes(key.value_or(""));
    const std::string valueBytes = Bytes(value.value_or(""));
    return WritePrivateProfileStringA(Bytes(section).c_str(), key ? keyBytes.c_str() : nullptr,
                                      value ? valueBytes.c_str() : nullptr, native_.c_str()) != FALSE;
  }

  Win32FileSystem fileSystem_{Root()};
  Win32TextCodec codec_;
  CachedProfileFiles ours_{fileSystem_, codec_, [](const ProfileImage&) { return GetACP(); }};
  std::string theirs_;
  std::string native_;
  int files_ = 0;
};

}  // namespace qb
