#include "foundation/gRvdFile.h"

#include <array>

#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

bool EndsInSeparator(std::string_view path) {
  return !path.empty() && (path.back() == '\\' || path.back() == '/');
}

void AppendSeparator(std::string& path) {
  if (!EndsInSeparator(path)) path.push_back('\\');
}

/// Offset of the last `character` before the last byte of `path`, or npos.
std::size_t FindBeforeLast(std::string_view path, char character) {
  return path.size() < 2 ? std::string_view::npos : path.rfind(character, path.size() - 2);
}

/// The byte offset that lies `distance` characters behind `offset`, or before it where negative; at least 0.
std::size_t MoveByCharacters(std::string_view text, std::size_t offset, std::ptrdiff_t distance) {
  if (distance >= 0) {
    return offset + FirstCharacters(text.substr(offset), static_cast<std::size_t>(distance)).size();
  }
  const std::string_view before = text.substr(0, offset);
  const auto count = static_cast<std::ptrdiff_t>(CharacterCount(before)) + distance;
  return count <= 0 ? 0 : FirstCharacters(before, static_cast<std::size_t>(count)).size();
}

}  // namespace

std::size_t ReplaceAll(std::string& text, std::string_view old, std::string_view replacement) {
  if (old.empty()) return 0;
  const auto growth = static_cast<std::ptrdiff_t>(CharacterCount(replacement)) -
                      static_cast<std::ptrdiff_t>(CharacterCount(old));
  std::size_t count = 0;
  for (std::size_t position = text.find(old); position != std::string::npos; ++count) {
    text.replace(position, old.size(), replacement);
    // A longer `old` resumes before the end of the replacement, so that the replaced part can match again.
    position = text.find(old, MoveByCharacters(text, position, growth + 1));
  }
  return count;
}

bool FileExists(std::string_view path, int attributes) {
  bool found = false;
  Attempt([&] { found = !ThePlatform().files->Search(path, static_cast<unsigned>(attributes)).empty(); });
  Err.Clear();
  return found;
}

std::string JoinFile(std::string_view directory, std::string_view file) {
  std::string path(directory);
  AppendSeparator(path);
  path += file;
  return path;
}

std::string JoinPath6(std::string_view p1, std::string_view p2, std::string_view p3, std::string_view p4,
                      std::string_view p5, std::string_view p6) {
  std::string path = JoinFile(Trim(p1), Trim(p2));
  for (const std::string_view piece : std::array{p3, p4, p5, p6}) {
    if (piece.empty()) break;
    path = JoinFile(path, Trim(piece));
  }
  return path;
}

std::string DirectoryOf(std::string_view path) {
  const std::size_t position = FindBeforeLast(path, '\\');  // the forward slash does not count here
  return position == std::string_view::npos ? std::string{} : std::string(path.substr(0, position));
}

std::string FileNameOf(std::string_view path) {
  const std::size_t position = path.find_last_of("\\/");
  return std::string(position == std::string_view::npos ? path : path.substr(position + 1));
}

std::string ExtensionOf(std::string_view path) {
  const std::size_t position = FindBeforeLast(path, '.');  // a dot of a directory's name counts too
  return position == std::string_view::npos ? std::string{} : std::string(path.substr(position));
}

std::string ChangeExtension(std::string_view path, std::string_view extension) {
  if (extension.starts_with('.')) extension.remove_prefix(1);
  std::string result(path);
  const std::size_t position = path.find_last_of(".\\/");
  if (position != std::string_view::npos && path[position] == '.') {
    result.resize(position + 1);
  } else {
    result.push_back('.');
  }
  result += extension;
  return result;
}

}  // namespace qb
