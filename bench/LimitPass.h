#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace qb {

/// The least that anything can do that looks at each key of a package file and writes it back safely: reads
/// `from`, splits it into lines, hashes each key, writes the lines to `to` and waits until they are on the
/// disk. Returns the combined hash, so that no part of the work can be left out. Raises std::system_error.
std::uint64_t LimitPass(const std::filesystem::path& from, const std::filesystem::path& to);

/// The same without the writing: what anything must do that looks at each key.
std::uint64_t ReadingPass(const std::filesystem::path& from);

/// The least that can tell a file that is missing or empty, besides: also asks for the size of each file in
/// the folder of `from` and below it.
std::uint64_t ReadingPassWithFiles(const std::filesystem::path& from);

/// Writes `bytes` to `path` and waits until they are on the disk. Raises std::system_error.
void WriteAndSync(const std::filesystem::path& path, std::string_view bytes);

/// The bytes of a file. Raises std::system_error.
std::string ReadWhole(const std::filesystem::path& path);

}  // namespace qb
