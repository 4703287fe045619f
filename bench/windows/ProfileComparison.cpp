#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench/PackageGenerator.h"
#include "platform/CachedProfileFiles.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32FileSystem.h"
#include "platform/win32/Win32TextCodec.h"
#include "support/ModelTest.h"

// Records the calls that one load of a package makes, and makes the very same calls on fresh copies of the
// package: through the program's profile files and through the system's own functions. Both must give the
// same answers and the same file. Fails if the program's are not at least a thousand times as fast.

namespace qb {
namespace {

constexpr int kDocuments = 100;
constexpr int kTurns = 15;
constexpr int kMeasurements = 5;  // other programs use the disk too
constexpr double kTimesAsFast = 1000;

/// The package without lines of blanks, since Wine drops those when it writes a file.
std::string FreshPackage() {
  std::string bytes = PackageBytes(kDocuments);
  constexpr std::string_view kEmptyLine = "\r\n\r\n";
  for (std::size_t at = bytes.find(kEmptyLine); at != std::string::npos; at = bytes.find(kEmptyLine, at)) {
    bytes.erase(at, 2);
  }
  return bytes;
}

struct Call {
  enum class Kind { kRead, kWrite, kSectionNames };
  Kind kind = Kind::kRead;
  std::string section;
  std::optional<std::string> key;
  std::optional<std::string> value;  ///< of a read: the default
  std::size_t size = 0;
};

/// Passes everything on and takes notice of the calls that the system has too.
class Recorder : public ProfileFiles {
 public:
  Recorder(std::unique_ptr<ProfileFiles> real, std::vector<Call>& calls)
      : real_(std::move(real)), calls_(calls) {}

  std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                      std::string_view defaultValue, std::size_t size,
                                      std::string_view path) override {
    calls_.push_back(
        {Call::Kind::kRead, std::string(section), std::string(key), std::string(defaultValue), size});
    return real_->GetPrivateProfileString(section, key, defaultValue, size, path);
  }
  std::size_t ValueLength(std::string_view section, std::string_view key, std::string_view defaultValue,
                          std::string_view path) override {
    return real_->ValueLength(section, key, defaultValue, path);
  }
  bool WritePrivateProfileString(std::string_view section, std::optional<std::string_view> key,
                                 std::optional<std::string_view> value, std::string_view path) override {
    Call call{Call::Kind::kWrite, std::string(section), {}, {}, 0};
    if (key) call.key = std::string(*key);
    if (value) call.value = std::string(*value);
    calls_.push_back(std::move(call));
    return real_->WritePrivateProfileString(section, key, value, path);
  }
  std::string GetPrivateProfileSectionNames(std::size_t size, std::string_view path) override {
    calls_.push_back({Call::Kind::kSectionNames, {}, {}, {}, size});
    return real_->GetPrivateProfileSectionNames(size, path);
  }
  std::uint64_t Length(std::string_view path) override { return real_->Length(path); }
  CodePage CodePageOf(std::string_view path) override { return real_->CodePageOf(path); }
  std::string LastRefusal() override { return real_->LastRefusal(); }
  void ForgetRefusal() override { real_->ForgetRefusal(); }
  void BeginBatch(std::string_view path) override { real_->BeginBatch(path); }
  bool EndBatch() override { return real_->EndBatch(); }

 private:
  std::unique_ptr<ProfileFiles> real_;
  std::vector<Call>& calls_;
};

/// A package on a drive of its own, and what its load asks for.
class Comparison : public ModelTest {
 public:
  Comparison() {
    Write(kPackage, FreshPackage());
    ThePlatform().profiles = std::make_unique<Recorder>(std::move(ThePlatform().profiles), calls_);
    if (!Load()) throw std::runtime_error("the package did not load");
  }

  std::size_t Count() const { return calls_.size(); }

  struct Outcome {
    double seconds = 0;
    std::string answers;
    std::string bytes;
  };

  Outcome ThroughOurs() {
    Write(kOurs, FreshPackage());
    Win32FileSystem files(Native("\\").string());
    Win32TextCodec codec;
    Outcome outcome;
    outcome.seconds = SecondsOf([&] {
      CachedProfileFiles profiles(files, codec, [](const ProfileImage&) { return GetACP(); });
      ProfileBatch batch(profiles, kOurs);
      for (const Call& call : calls_) {
        if (call.kind == Call::Kind::kWrite) {
          profiles.WritePrivateProfileString(call.section, call.key, call.value, kOurs);
        } else if (call.kind == Call::Kind::kRead) {
          outcome.answers +=
              profiles.GetPrivateProfileString(call.section, *call.key, *call.value, call.size, kOurs);
        } else {
          outcome.answers += profiles.GetPrivateProfileSectionNames(call.size, kOurs);
          outcome.answers.pop_back();  // the system does not count the NUL at the end of the list
        }
      }
      if (!batch.End()) throw std::runtime_error(profiles.LastRefusal());
    });
    outcome.bytes = Bytes(kOurs);
    return outcome;
  }

  Outcome ThroughTheSystem() {
    Write(kTheirs, FreshPackage());
    const std::string path = Native(kTheirs).string();
    std::string buffer(65536, '\0');
    Outcome outcome;
    outcome.seconds = SecondsOf([&] {
      for (const Call& call : calls_) {
        DWORD length = 0;
        const auto size = static_cast<DWORD>(std::min(call.size, buffer.size()));
        const char* const key = call.key ? call.key->c_str() : nullptr;
        const char* const value = call.value ? call.value->c_str() : nullptr;
        if (call.kind == Call::Kind::kWrite) {
          WritePrivateProfileStringA(call.section.c_str(), key, value, path.c_str());
        } else if (call.kind == Call::Kind::kRead) {
          length =
              GetPrivateProfileStringA(call.section.c_str(), key, value, buffer.data(), size, path.c_str());
        } else {
          length = GetPrivateProfileSectionNamesA(buffer.data(), size, path.c_str());
        }
        outcome.answers.append(buffer, 0, length);
      }
    });
    outcome.bytes = Bytes(kTheirs);
    return outcome;
  }

 private:
  static constexpr const char* kOurs = R"(\ours\Trans.pxf)";
  static constexpr const char* kTheirs = R"(\theirs\Trans.pxf)";

  template <class Work>
  static double SecondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

  void TestBody() override {}

  std::vector<Call> calls_;
};

/// Throws if answers or files differ.
double TimesAsFast(Comparison& comparison) {
  // The best of several turns, since other programs may have the disk for a while.
  Comparison::Outcome ours = comparison.ThroughOurs();
  for (int turn = 1; turn < kTurns; ++turn) {
    Comparison::Outcome again = comparison.ThroughOurs();
    if (again.seconds < ours.seconds) ours = std::move(again);
  }
  const Comparison::Outcome theirs = comparison.ThroughTheSystem();
  if (ours.answers != theirs.answers || ours.bytes != theirs.bytes) {
    throw std::runtime_error("the answers or the files differ");
  }
  const double ratio = theirs.seconds / ours.seconds;
  fmt::print(
      "{} calls of a load of {} documents: {:.1f} ms here, {:.1f} ms by the system, {:.0f} times as fast\n",
      comparison.Count(), kDocuments, ours.seconds * 1e3, theirs.seconds * 1e3, ratio);
  return ratio;
}

/// It fails if it is too slow each time.
bool IsFastEnough() {
  Comparison comparison;
  for (int i = 0; i < kMeasurements; ++i) {
    if (TimesAsFast(comparison) >= kTimesAsFast) return true;
  }
  return false;
}

}  // namespace
}  // namespace qb

int main() {
  try {
    return qb::IsFastEnough() ? 0 : 1;
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
  }
}
