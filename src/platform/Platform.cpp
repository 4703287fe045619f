#include "platform/Platform.h"

#include <utility>

namespace qb {
namespace {
std::unique_ptr<Platform> installed;
}  // namespace

Platform& ThePlatform() {
  return *installed;
}

std::unique_ptr<Platform> InstallPlatform(std::unique_ptr<Platform> platform) {
  return std::exchange(installed, std::move(platform));
}

}  // namespace qb
