#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "bench/LimitPass.h"
#include "bench/OpenSession.h"

// Opening and marking, beside the least work on the same file. Only the ratios count (see bench/check): the
// times belong to one machine and its disk. Each iteration is timed by hand, as its preparation costs more
// than itself.
namespace qb {
namespace {

double SecondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

int Documents(const benchmark::State& state) {
  return static_cast<int>(state.range(0));
}

void LimitPassOverPackage(benchmark::State& state) {
  const OpenSession session(Documents(state));
  for ([[maybe_unused]] auto turn : state) {
    state.SetIterationTime(
        SecondsOf([&] { benchmark::DoNotOptimize(LimitPass(session.PackageFile(), session.OtherFile())); }));
  }
}

void WriteAndSyncOfPackage(benchmark::State& state) {
  const OpenSession session(Documents(state));
  const std::string bytes = ReadWhole(session.PackageFile());
  for ([[maybe_unused]] auto turn : state) {
    state.SetIterationTime(SecondsOf([&] { WriteAndSync(session.OtherFile(), bytes); }));
  }
}

void FirstOpen(benchmark::State& state) {
  for ([[maybe_unused]] auto turn : state) {
    OpenSession session(Documents(state));
    state.SetIterationTime(SecondsOf([&] { session.Open(); }));
  }
}

/// Opening a package that was open before changes nothing in it, so nothing may be written.
void OpenAgain(benchmark::State& state) {
  OpenSession session(Documents(state));
  session.Open();
  const std::string bytes = ReadWhole(session.PackageFile());
  const auto written = std::filesystem::last_write_time(session.PackageFile());
  for ([[maybe_unused]] auto turn : state) {
    state.SetIterationTime(SecondsOf([&] { session.Open(); }));
  }
  if (std::filesystem::last_write_time(session.PackageFile()) != written ||
      ReadWhole(session.PackageFile()) != bytes) {
    state.SkipWithError("The package was written");
  }
}

void MarkOneCompleted(benchmark::State& state) {
  OpenSession session(Documents(state));
  session.Open();
  int document = 1;
  for ([[maybe_unused]] auto turn : state) {
    document = (document + Documents(state) / 7) % Documents(state) + 1;  // first and last ones in their turn
    state.SetIterationTime(SecondsOf([&] { session.MarkCompleted(document); }));
  }
}

BENCHMARK(LimitPassOverPackage)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(2)
    ->Repetitions(7)
    ->UseManualTime();
BENCHMARK(FirstOpen)->Arg(100)->Arg(1000)->Arg(10000)->Iterations(1)->Repetitions(7)->UseManualTime();
BENCHMARK(LimitPassOverPackage)->Arg(100000)->Iterations(1)->Repetitions(3)->UseManualTime();
BENCHMARK(FirstOpen)->Arg(100000)->Iterations(1)->Repetitions(3)->UseManualTime();
BENCHMARK(OpenAgain)->Arg(100)->Arg(1000)->Arg(10000)->Iterations(1)->Repetitions(3)->UseManualTime();
BENCHMARK(WriteAndSyncOfPackage)->Arg(10000)->Iterations(3)->Repetitions(7)->UseManualTime();
BENCHMARK(MarkOneCompleted)->Arg(10000)->Iterations(3)->Repetitions(7)->UseManualTime();

}  // namespace
}  // namespace qb
