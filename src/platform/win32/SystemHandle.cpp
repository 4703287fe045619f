#include "platform/win32/SystemHandle.h"

#include "platform/win32/SystemHeaders.h"

namespace qb {

SystemHandle::SystemHandle(void* handle) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {
}

void SystemHandle::Close() {
  if (handle_ != nullptr) CloseHandle(std::exchange(handle_, nullptr));
}

}  // namespace qb
