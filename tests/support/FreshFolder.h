#pragma once

#include <filesystem>

namespace qb {

/// A new folder of this test alone, among the system's folders for such files. The caller removes it.
std::filesystem::path MakeFreshFolder();

}  // namespace qb
