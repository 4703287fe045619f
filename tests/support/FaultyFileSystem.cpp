#include "support/FaultyFileSystem.h"

#include <utility>

#include "platform/CachedProfileFiles.h"
#include "platform/PackageCodePage.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

class FaultyWriter : public FileWriter {
 public:
  FaultyWriter(FaultyFileSystem& files, std::unique_ptr<FileWriter> real, std::string_view path)
      : files_(files), real_(std::move(real)), path_(path) {}

  void Write(std::string_view bytes) override { real_->Write(bytes); }
  void Flush() override {
    files_.Meet(FileOperation::kWrite, path_);
    real_->Flush();
  }

 private:
  FaultyFileSystem& files_;
  std::unique_ptr<FileWriter> real_;
  std::string path_;
};

}  // namespace

void FaultyFileSystem::Fail(FileOperation operation, long number, std::string pathPart) {
  faults_.push_back({operation, number, std::move(pathPart)});
}

int FaultyFileSystem::Count(FileOperation operation) const {
  const auto found = counts_.find(operation);
  return found == counts_.end() ? 0 : found->second;
}

void FaultyFileSystem::Meet(FileOperation operation, std::string_view path) {
  ++counts_[operation];
  if (const auto action = actions_.find(operation); action != actions_.end()) {
    const std::function<void()> run = std::move(action->second);
    actions_.erase(action);
    run();
  }
  for (const Fault& fault : faults_) {
    const bool meant = fault.operation == operation && path.find(fault.pathPart) != std::string_view::npos;
    if (meant) RaiseAbout(fault.number, path);
  }
}

std::optional<FileInfo> FaultyFileSystem::Find(std::string_view path) {
  Meet(FileOperation::kFind, path);
  return real_->Find(path);
}

std::vector<std::string> FaultyFileSystem::Search(std::string_view pattern, unsigned attributes) {
  Meet(FileOperation::kSearch, pattern);
  return real_->Search(pattern, attributes);
}

std::string FaultyFileSystem::Read(std::string_view path) {
  Meet(FileOperation::kRead, path);
  return real_->Read(path);
}

std::unique_ptr<FileWriter> FaultyFileSystem::OpenForWriting(std::string_view path) {
  Meet(FileOperation::kOpenForWriting, path);
  return std::make_unique<FaultyWriter>(*this, real_->OpenForWriting(path), path);
}

std::unique_ptr<FileWriter> FaultyFileSystem::OpenForAppending(std::string_view path) {
  Meet(FileOperation::kOpenForAppending, path);
  return std::make_unique<FaultyWriter>(*this, real_->OpenForAppending(path), path);
}

bool FaultyFileSystem::Copy(std::string_view source, std::string_view target) {
  Meet(FileOperation::kCopy, target);
  return real_->Copy(source, target);
}

void FaultyFileSystem::Remove(std::string_view path) {
  Meet(FileOperation::kRemove, path);
  real_->Remove(path);
}

void FaultyFileSystem::CheckRemovable(std::string_view path) {
  Meet(FileOperation::kCheckRemovable, path);
  real_->CheckRemovable(path);
}

void FaultyFileSystem::MakeDirectory(std::string_view path) {
  Meet(FileOperation::kMakeDirectory, path);
  real_->MakeDirectory(path);
}

void FaultyFileSystem::SetAttributes(std::string_view path, unsigned attributes) {
  Meet(FileOperation::kSetAttributes, path);
  real_->SetAttributes(path, attributes);
}

std::string FaultyFileSystem::Resolved(std::string_view path) {
  Meet(FileOperation::kResolved, path);
  return real_->Resolved(path);
}

std::optional<std::string> FaultyFileSystem::ShortPathName(std::string_view path) {
  Meet(FileOperation::kShortPathName, path);
  return real_->ShortPathName(path);
}

std::optional<FileStamp> FaultyFileSystem::Stamp(std::string_view path) {
  Meet(FileOperation::kStamp, path);
  return real_->Stamp(path);
}

FileStamp FaultyFileSystem::ReplaceContent(std::string_view path, const Pieces& content) {
  Meet(FileOperation::kReplaceContent, path);
  return real_->ReplaceContent(path, content);
}

std::unique_ptr<FileLock> FaultyFileSystem::Lock(std::string_view path) {
  Meet(FileOperation::kLock, path);
  return real_->Lock(path);
}

FaultyFileSystem& InstallFaultyFiles(Platform& platform) {
  auto files = std::make_unique<FaultyFileSystem>(std::move(platform.files));
  FaultyFileSystem& installed = *files;
  platform.files = std::move(files);
  platform.profiles = std::make_unique<CachedProfileFiles>(
      installed, *platform.codec, PackageCodePageChooser(*platform.registry, *platform.codec));
  return installed;
}

}  // namespace qb
