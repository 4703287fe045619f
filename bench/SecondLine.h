#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace qb {

/// A line of its own to an office that runs, for what its user does and for what it does by itself.
class SecondLine {
 public:
  /// `profile` is the native profile folder of the office. Raises std::runtime_error if it cannot be reached.
  explicit SecondLine(const std::string& profile);
  SecondLine(const SecondLine&) = delete;
  SecondLine& operator=(const SecondLine&) = delete;
  ~SecondLine();

  /// Lets the office open a source and a translation by itself and close them again; the seconds that the
  /// opening took. Paths are native.
  double OpenPair(const std::string& source, const std::string& translation);
  /// Lets the document be stored; when the office has told that it was.
  std::chrono::steady_clock::time_point Save(const std::string& path);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace qb
