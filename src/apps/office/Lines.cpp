#include "apps/office/Lines.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

#include "apps/office/Failure.h"

namespace qb::office {

bool LineReader::Read() {
  std::array<char, 65536> buffer{};
  const ssize_t count = read(descriptor_, buffer.data(), buffer.size());
  if (count < 0) return errno == EINTR || errno == EAGAIN;
  waiting_.append(buffer.data(), static_cast<std::size_t>(count));
  return count > 0;
}

std::optional<std::string> LineReader::Next() {
  const std::size_t end = waiting_.find('\n');
  if (end == std::string::npos) return std::nullopt;
  std::string line = waiting_.substr(0, end);
  waiting_.erase(0, end + 1);
  return line;
}

void WriteLine(const nlohmann::json& object) {
  const std::string line = object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + '\n';
  if (line.size() > kLongestLine) {
    throw Failure("office", "The document has more to tell than " + std::to_string(kLongestLine) + " bytes");
  }
  for (std::string_view rest = line; !rest.empty();) {
    const ssize_t count = write(STDOUT_FILENO, rest.data(), rest.size());
    if (count < 0 && errno != EINTR) return;
    if (count > 0) rest.remove_prefix(static_cast<std::size_t>(count));
  }
}

}  // namespace qb::office
