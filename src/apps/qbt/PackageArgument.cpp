#include "apps/qbt/PackageArgument.h"

#include <fmt/format.h>

#include <algorithm>
#include <system_error>
#include <vector>

#include "apps/qbt/ExitCode.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr char kKeptSeparator = '\\';

std::string WithSwappedSeparators(std::string text) {
  constexpr auto kNative = static_cast<char>(std::filesystem::path::preferred_separator);
  for (char& byte : text) {
    if (byte == kNative) {
      byte = kKeptSeparator;
    } else if (byte == kKeptSeparator) {
      byte = kNative;
    }
  }
  return text;
}

std::filesystem::path OnlyPackageIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> found;
  std::error_code failed;
  for (std::filesystem::directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    std::error_code unknown;  // an entry that nothing can be told about is no package
    if (EqualIgnoringCase(entry->path().extension().string(), ".pxf") && entry->is_regular_file(unknown)) {
      found.push_back(entry->path());
    }
  }
  if (failed) {
    throw CommandFailure(exitcode::kUnreadable,
                         fmt::format("{} cannot be read: {}", folder.string(), failed.message()));
  }
  if (found.empty()) {
    throw CommandFailure(exitcode::kUsage,
                         fmt::format("there is no package in {}: name one with --package", folder.string()));
  }
  if (found.size() > 1) {
    std::sort(found.begin(), found.end());
    throw CommandFailure(
        exitcode::kUsage,
        fmt::format("there are {} packages in {}, among them {} and {}: name one with --package",
                    found.size(), folder.string(), found[0].filename().string(),
                    found[1].filename().string()));
  }
  return found.front();
}

}  // namespace

std::filesystem::path NativePath(std::string_view text) {
  return std::u8string(text.begin(), text.end());
}

std::string KeptPath(const std::filesystem::path& native) {
  return WithSwappedSeparators(std::filesystem::absolute(native).lexically_normal().string());
}

std::string KeptRelativePath(const std::filesystem::path& native) {
  return WithSwappedSeparators(native.string());
}

std::string ShownPath(std::string_view kept) {
  return WithSwappedSeparators(std::string(kept));
}

std::string FindPackage(const std::string& given) {
  const std::filesystem::path path = NativePath(given.empty() ? "." : given);
  std::error_code failed;
  if (std::filesystem::is_directory(path, failed)) return KeptPath(OnlyPackageIn(path));
  if (!std::filesystem::exists(path, failed)) {
    throw CommandFailure(exitcode::kUnreadable, fmt::format("{} does not exist", path.string()));
  }
  return KeptPath(path);
}

}  // namespace qb
