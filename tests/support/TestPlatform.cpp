#include "support/TestPlatform.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "foundation/FoundationState.h"
#include "platform/HostPlatform.h"
#include "support/FreshFolder.h"

namespace qb {
PlatformTest::PlatformTest() : folder_(MakeFreshFolder()) {
  // The settings stand beside the drive, so that the drive starts empty.
  const std::filesystem::path drive = folder_ / "drive";
  const std::filesystem::path configuration = folder_ / "config";
  std::filesystem::create_directory(drive);
  std::filesystem::create_directory(configuration);
  auto platform = MakeHostPlatform({drive.string(), configuration.string()});
  boxes_ = Install<ScriptedBoxes>(platform->messageBoxes);
  dialogs_ = Install<ScriptedFileDialogs>(platform->fileDialogs);
  clipboard_ = Install<RecordingClipboard>(platform->clipboard);
  pointer_ = Install<RecordingPointer>(platform->mousePointer);
  before_ = InstallPlatform(std::move(platform));
}

PlatformTest::~PlatformTest() {
  ResetFoundationState();
  InstallPlatform(std::move(before_));
  std::error_code ignored;  // what is left behind lies in the system's folder for such files
  std::filesystem::remove_all(folder_, ignored);
}

void PlatformTest::TearDown() {
  for (const MessageBoxRequest& question : Boxes().UnexpectedQuestions()) {
    ADD_FAILURE() << "Nobody had scripted an answer to: " << question.text;
  }
}

FakeClock& PlatformTest::UseFakeClock() {
  return *Install<FakeClock>(ThePlatform().clock);
}

void PlatformTest::Write(std::string_view path, std::string_view bytes) {
  const std::filesystem::path file = Native(path);
  std::filesystem::create_directories(file.parent_path());
  std::ofstream stream(file, std::ios::binary);
  stream << bytes;
  stream.close();
  if (!stream) ADD_FAILURE() << "Cannot write " << file;
}

std::string PlatformTest::Bytes(std::string_view path) const {
  std::ifstream stream(Native(path), std::ios::binary);
  if (!stream) {
    ADD_FAILURE() << "There is no file " << path;
    return {};
  }
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

bool PlatformTest::Exists(std::string_view path) const {
  return std::filesystem::exists(Native(path));
}

void PlatformTest::MakeFolder(std::string_view path) {
  std::filesystem::create_directories(Native(path));
}

std::filesystem::path PlatformTest::Native(std::string_view path) const {
  std::string relative(path.substr(std::min(path.find_first_not_of('\\'), path.size())));
  std::replace(relative.begin(), relative.end(), '\\', '/');
  return folder_ / "drive" / std::u8string(relative.begin(), relative.end());  // as a file's name it is UTF-8
}

}  // namespace qb
