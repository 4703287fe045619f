#include "bench/LimitPass.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <string>
#include <system_error>
#include <vector>

namespace qb {
namespace {

class Descriptor {
 public:
  Descriptor(const std::filesystem::path& path, int flags) : number_(open(path.c_str(), flags, 0644)) {
    Check(number_, path);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(number_); }

  int Number() const { return number_; }

  static void Check(ssize_t result, const std::filesystem::path& path) {
    if (result < 0) throw std::system_error(errno, std::generic_category(), path.string());
  }

 private:
  int number_;
};

std::vector<std::string_view> LinesOf(const std::string& bytes) {
  std::vector<std::string_view> lines;
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\n', start), bytes.size() - 1) + 1;
    lines.emplace_back(bytes.data() + start, end - start);
    start = end;
  }
  return lines;
}

std::uint64_t HashOfKeys(const std::vector<std::string_view>& lines) {
  std::uint64_t hash = 0;
  for (const std::string_view line : lines) {
    hash = hash * 31 + std::hash<std::string_view>{}(line.substr(0, line.find('=')));
  }
  return hash;
}

}  // namespace

std::string ReadWhole(const std::filesystem::path& path) {
  std::string bytes(std::filesystem::file_size(path), '\0');
  const Descriptor file(path, O_RDONLY | O_CLOEXEC);
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t count = read(file.Number(), bytes.data() + done, bytes.size() - done);
    Descriptor::Check(count, path);
    if (count == 0) throw std::system_error(EIO, std::generic_category(), path.string());
    done += static_cast<std::size_t>(count);
  }
  return bytes;
}

void WriteAndSync(const std::filesystem::path& path, std::string_view bytes) {
  const Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC);
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t count = write(file.Number(), bytes.data() + done, bytes.size() - done);
    Descriptor::Check(count, path);
    done += static_cast<std::size_t>(count);
  }
  Descriptor::Check(fsync(file.Number()), path);
}

std::uint64_t LimitPass(const std::filesystem::path& from, const std::filesystem::path& to) {
  const std::string bytes = ReadWhole(from);
  const std::vector<std::string_view> lines = LinesOf(bytes);
  const std::uint64_t hash = HashOfKeys(lines);
  std::string out;
  out.reserve(bytes.size());
  for (const std::string_view line : lines) out.append(line);
  WriteAndSync(to, out);
  return hash;
}

std::uint64_t ReadingPass(const std::filesystem::path& from) {
  const std::string bytes = ReadWhole(from);
  return HashOfKeys(LinesOf(bytes));
}

std::uint64_t ReadingPassWithFiles(const std::filesystem::path& from) {
  std::uint64_t hash = ReadingPass(from);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(from.parent_path())) {
    if (!entry.is_directory()) hash = hash * 31 + entry.file_size();
  }
  return hash;
}

}  // namespace qb
