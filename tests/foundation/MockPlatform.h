#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"
#include "support/FakeApplications.h"

namespace qb {

class MockFileSystem : public FileSystem {
 public:
  MOCK_METHOD(std::optional<FileInfo>, Find, (std::string_view), (override));
  MOCK_METHOD(std::vector<std::string>, Search, (std::string_view, unsigned), (override));
  MOCK_METHOD(std::string, Read, (std::string_view), (override));
  MOCK_METHOD(std::unique_ptr<FileWriter>, OpenForWriting, (std::string_view), (override));
  MOCK_METHOD(std::unique_ptr<FileWriter>, OpenForAppending, (std::string_view), (override));
  MOCK_METHOD(bool, Copy, (std::string_view, std::string_view), (override));
  MOCK_METHOD(void, Remove, (std::string_view), (override));
  MOCK_METHOD(void, CheckRemovable, (std::string_view), (override));
  MOCK_METHOD(void, MakeDirectory, (std::string_view), (override));
  MOCK_METHOD(void, SetAttributes, (std::string_view, unsigned), (override));
  MOCK_METHOD(std::string, CurrentDirectory, (), (override));
  MOCK_METHOD(std::string, ProgramDirectory, (), (override));
  MOCK_METHOD(std::string, Resolved, (std::string_view), (override));
  MOCK_METHOD(std::optional<std::string>, ShortPathName, (std::string_view), (override));
  MOCK_METHOD(std::optional<FileStamp>, Stamp, (std::string_view), (override));
  MOCK_METHOD(FileStamp, ReplaceContent, (std::string_view, const Pieces&), (override));
  MOCK_METHOD(std::unique_ptr<FileLock>, Lock, (std::string_view), (override));
};

class MockProfileFiles : public ProfileFiles {
 public:
  MOCK_METHOD(std::string, GetPrivateProfileString,
              (std::string_view, std::string_view, std::string_view, std::size_t, std::string_view),
              (override));
  MOCK_METHOD(std::size_t, ValueLength,
              (std::string_view, std::string_view, std::string_view, std::string_view), (override));
  MOCK_METHOD(bool, WritePrivateProfileString,
              (std::string_view, std::optional<std::string_view>, std::optional<std::string_view>,
               std::string_view),
              (override));
  MOCK_METHOD(std::string, GetPrivateProfileSectionNames, (std::size_t, std::string_view), (override));
  MOCK_METHOD(std::uint64_t, Length, (std::string_view), (override));
  MOCK_METHOD(CodePage, CodePageOf, (std::string_view), (override));
  MOCK_METHOD(std::string, LastRefusal, (), (override));
  MOCK_METHOD(void, ForgetRefusal, (), (override));
  MOCK_METHOD(void, BeginBatch, (std::string_view), (override));
  MOCK_METHOD(bool, EndBatch, (), (override));
};

class MockRegistry : public Registry {
 public:
  MOCK_METHOD(std::optional<RegistryValue>, Query, (Hive, std::string_view, std::string_view), (override));
  MOCK_METHOD(long, SetText, (Hive, std::string_view, std::string_view, std::string_view), (override));
};

/// Environment variables that a test sets.
class FakeEnvironment : public Environment {
 public:
  std::string Variable(std::string_view name) override {
    const auto found = variables.find(std::string(name));
    return found == variables.end() ? std::string{} : found->second;
  }

  std::map<std::string, std::string> variables;
};

/// Puts a new object in the place of one part of the installed platform and returns it.
template <class Implementation, class Interface>
Implementation& Replace(std::unique_ptr<Interface>& part) {
  auto object = std::make_unique<Implementation>();
  Implementation& replaced = *object;
  part = std::move(object);
  return replaced;
}

}  // namespace qb
