#include <fmt/format.h>
#include <malloc.h>

#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench/OpenSession.h"

// bench_memory <documents>: opens a fresh package of so many documents in a process of its own and prints, as
// one line of JSON, the bytes of the file and by how many bytes the process grew: at its peak and at the end.
namespace {

/// A value of /proc/self/status in bytes: "VmHWM" is the peak of the memory in use, "VmRSS" the present use.
long long StatusBytes(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    long long kilobytes = 0;
    if (word == name + ":" && status >> kilobytes) return kilobytes * 1024;
  }
  throw std::runtime_error("/proc/self/status has no " + name);
}

/// Bytes that the program has asked for and not given back.
long long HeldBytes() {
  const struct mallinfo2 information = mallinfo2();
  return static_cast<long long>(information.uordblks + information.hblkhd);
}

/// Lets the peak start anew, so that making the package does not count.
void ForgetPeak() {
  std::ofstream("/proc/self/clear_refs") << '5';
}

int NumberOf(const std::string& text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  if (number < 1) throw std::invalid_argument("bench_memory <documents>");
  return number;
}

}  // namespace

int main(int count, char** arguments) {
  const int documents = NumberOf(count == 2 ? arguments[1] : "");
  qb::OpenSession session(documents);
  ForgetPeak();
  const long long before = StatusBytes("VmRSS");
  const long long heldBefore = HeldBytes();
  session.Open();
  const long long held = HeldBytes() - heldBefore;
  fmt::print(R"({{"documents": {}, "file": {}, "held": {}, "peak": {}}})"
             "\n",
             documents, std::filesystem::file_size(session.PackageFile()), held,
             StatusBytes("VmHWM") - before);
}
