#pragma once

#include <stdexcept>
#include <string>

namespace qb::office {

/// Why a request could not be done: one of the protocol's error codes, and a sentence for people.
class Failure : public std::runtime_error {
 public:
  Failure(std::string code, const std::string& text) : std::runtime_error(text), code_(std::move(code)) {}
  const std::string& Code() const { return code_; }

 private:
  std::string code_;
};

}  // namespace qb::office
