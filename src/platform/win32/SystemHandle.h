#pragma once

#include <utility>

namespace qb {

/// A handle of the system that must be closed; closed with the object.
class SystemHandle {
 public:
  SystemHandle() = default;
  /// Takes over what a call returned; null and INVALID_HANDLE_VALUE both count as none.
  explicit SystemHandle(void* handle);
  SystemHandle(SystemHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  SystemHandle& operator=(SystemHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~SystemHandle() { Close(); }

  void* Get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }
  void Close();

 private:
  void* handle_ = nullptr;
};

}  // namespace qb
