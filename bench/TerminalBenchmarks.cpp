#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "apps/qbt/PackageArgument.h"
#include "apps/qbt/PackageCheck.h"
#include "apps/qbt/PackageStatus.h"
#include "bench/LimitPass.h"
#include "bench/PackageGenerator.h"
#include "platform/HostPlatform.h"
#include "platform/Platform.h"

// What the terminal program does to tell the status of a package and to check it, beside the least reading of
// the same file.
namespace qb {
namespace {

constexpr int kDocuments = 10000;

/// A package with all its documents on the disk. It is made once, since that takes longer than anything
/// measured.
class DeliveredPackage {
 public:
  DeliveredPackage() : folder_(FreshFolder()) {
    WriteAndSync(File(), PackageBytes(kDocuments));
    for (const char* version : {"dst", "src"}) {
      std::filesystem::create_directory(folder_ / version);
      for (int document = 1; document <= kDocuments; ++document) {
        Put(folder_ / version / fmt::format("page{}.html", document));
        Put(folder_ / version / fmt::format("figure{}.png", document));
      }
    }
  }
  DeliveredPackage(const DeliveredPackage&) = delete;
  DeliveredPackage& operator=(const DeliveredPackage&) = delete;
  ~DeliveredPackage() {
    std::error_code ignored;  // it lies in the system's folder for such files
    std::filesystem::remove_all(folder_, ignored);
  }

  std::filesystem::path File() const { return folder_ / "Trans.pxf"; }
  std::filesystem::path Settings() const { return folder_ / "config"; }

 private:
  static std::filesystem::path FreshFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "quillbank-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error(name + " cannot be made");
    return name;
  }

  static void Put(const std::filesystem::path& path) {
    std::ofstream file(path);
    file << 'x';
    file.close();
    if (!file) throw std::runtime_error(path.string() + " cannot be written");
  }

  std::filesystem::path folder_;
};

const DeliveredPackage& ThePackage() {
  static const DeliveredPackage package;
  return package;
}

/// The platform as the program has it.
class RealPlatform {
 public:
  RealPlatform() : before_(InstallPlatform(MakeHostPlatform({{}, ThePackage().Settings().string()}))) {}
  RealPlatform(const RealPlatform&) = delete;
  RealPlatform& operator=(const RealPlatform&) = delete;
  ~RealPlatform() { InstallPlatform(std::move(before_)); }

 private:
  std::unique_ptr<Platform> before_;
};

void ReadingPassOverPackage(benchmark::State& state) {
  const std::filesystem::path file = ThePackage().File();
  for ([[maybe_unused]] auto turn : state) benchmark::DoNotOptimize(ReadingPass(file));
}

void ReadingPassWithFilesOverPackage(benchmark::State& state) {
  const std::filesystem::path file = ThePackage().File();
  for ([[maybe_unused]] auto turn : state) benchmark::DoNotOptimize(ReadingPassWithFiles(file));
}

void StatusInTerminal(benchmark::State& state) {
  const RealPlatform platform;
  const std::string path = KeptPath(ThePackage().File());
  for ([[maybe_unused]] auto turn : state) {
    const PackageSource source = ReadPackage(path);
    const PackageContents contents(source);
    if (StatusOf(contents).all.All().documents != kDocuments) state.SkipWithError("Documents are missing");
  }
}

void CheckInTerminal(benchmark::State& state) {
  const RealPlatform platform;
  const std::string path = KeptPath(ThePackage().File());
  for ([[maybe_unused]] auto turn : state) {
    const PackageSource source = ReadPackage(path);
    const PackageContents contents(source);
    // The documents are fresh, and the generator leaves the length open.
    const Findings findings = CheckPackage(contents);
    if (findings.Count(Severity::kError) != 1 || findings.Count(Severity::kWarning) != kDocuments) {
      state.SkipWithError("The package is not as it was made");
    }
  }
}

BENCHMARK(ReadingPassOverPackage)->Arg(kDocuments)->Iterations(5)->Repetitions(7);
BENCHMARK(StatusInTerminal)->Arg(kDocuments)->Iterations(5)->Repetitions(7);
BENCHMARK(ReadingPassWithFilesOverPackage)->Arg(kDocuments)->Iterations(3)->Repetitions(7);
BENCHMARK(CheckInTerminal)->Arg(kDocuments)->Iterations(3)->Repetitions(7);

}  // namespace
}  // namespace qb
