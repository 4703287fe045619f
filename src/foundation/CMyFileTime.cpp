#include "foundation/CMyFileTime.h"

#include <fmt/format.h>

#include "platform/Platform.h"

namespace qb {
namespace {

constexpr std::string_view kNoModification = "18991230000000";
constexpr std::string_view kNoCreation = "16010101000000";

std::string Digits(const DateTime& time) {
  return fmt::format("{:04}{:02}{:02}{:02}{:02}{:02}", time.year, time.month, time.day, time.hour,
                     time.minute, time.second);
}

}  // namespace

void CMyFileTime::SetFile(std::string_view fileName) {
  fileName_ = fileName;
}

std::string CMyFileTime::GetLastModification() const {
  const std::optional<FileInfo> file = ThePlatform().files->Find(fileName_);
  if (!file || (file->attributes & attribute::kDirectory) != 0) return std::string(kNoModification);
  return Digits(ThePlatform().clock->LocalTime(file->lastWrite));
}

std::string CMyFileTime::GetCreation() const {
  const std::optional<FileInfo> file = ThePlatform().files->Find(fileName_);
  return file ? Digits(ThePlatform().clock->UtcTime(file->creation)) : std::string(kNoCreation);
}

}  // namespace qb
