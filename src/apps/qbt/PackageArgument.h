#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace qb {

/// The path that a text names. A path made of a text itself is read in a code page on Windows, where texts
/// are UTF-8.
std::filesystem::path NativePath(std::string_view text);
/// A path of the machine as the program keeps it, absolute and with `\`, and as a user reads it.
std::string KeptPath(const std::filesystem::path& native);
/// A path from some folder on, which stays so.
std::string KeptRelativePath(const std::filesystem::path& native);
std::string ShownPath(std::string_view kept);

/// The package that a command works on, as a kept path: the file given, the only package in the folder given,
/// or, if nothing is given, the only one in the current folder. Raises CommandFailure if there is none, or
/// more than one.
std::string FindPackage(const std::string& given);

}  // namespace qb
