#include "support/FolderTest.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <system_error>
#include <thread>

#include "support/FreshFolder.h"

namespace qb {
namespace {

constexpr std::chrono::milliseconds kSettled{25};

}  // namespace

FolderTest::FolderTest() : root_(MakeFreshFolder()) {
}

FolderTest::~FolderTest() {
  std::error_code ignored;  // what is left behind lies in the system's folder for such files
  std::filesystem::remove_all(root_, ignored);
}

std::filesystem::path FolderTest::Native(std::string_view path) const {
  std::string relative(path.substr(std::min(path.find_first_not_of('\\'), path.size())));
  std::replace(relative.begin(), relative.end(), '\\', '/');
  return root_ / std::u8string(relative.begin(), relative.end());  // as a file's name it is UTF-8
}

void FolderTest::Put(std::string_view path, std::string_view bytes) const {
  std::filesystem::create_directories(Native(path).parent_path());
  std::ofstream stream(Native(path), std::ios::binary);
  stream << bytes;
  stream.close();
  if (!stream) ADD_FAILURE() << "Cannot write " << path;
}

std::string FolderTest::Content(std::string_view path) const {
  std::ifstream stream(Native(path), std::ios::binary);
  if (!stream) {
    ADD_FAILURE() << "There is no file " << path;
    return {};
  }
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

bool FolderTest::Exists(std::string_view path) const {
  return std::filesystem::exists(Native(path));
}

void FolderTest::LetFilesSettle() {
  const auto end = std::chrono::system_clock::now() + kSettled;
  while (std::chrono::system_clock::now() < end) std::this_thread::yield();
}

}  // namespace qb
