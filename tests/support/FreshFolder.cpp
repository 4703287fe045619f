#include "support/FreshFolder.h"

#include <random>
#include <string>
#include <system_error>

namespace qb {

std::filesystem::path MakeFreshFolder() {
  static std::random_device numbers;
  const std::filesystem::path parent = std::filesystem::temp_directory_path();
  for (;;) {
    std::filesystem::path folder = parent / ("quillbank-test-" + std::to_string(numbers()));
    // Another test may have had the same number, and every other failure is thrown.
    if (std::filesystem::create_directory(folder)) return folder;
  }
}

}  // namespace qb
