#include "editors/com/MemberCall.h"

#include <utility>

#include "platform/win32/ComFailure.h"

namespace qb {
namespace {

MemberCall* innermost = nullptr;

}  // namespace

MemberCall::MemberCall() : outer_(std::exchange(innermost, this)) {
  SetErrorInfo(0, nullptr);  // what is found there afterwards is of this call
}

MemberCall::~MemberCall() {
  innermost = outer_;
}

MemberCall* MemberCall::Current() {
  return innermost;
}

void MemberCall::Hold(std::exception_ptr failure) {
  if (held_ == nullptr) held_ = std::move(failure);
}

void MemberCall::Finish(HRESULT result, std::string_view member) {
  if (held_ != nullptr) std::rethrow_exception(std::exchange(held_, nullptr));
  if (FAILED(result)) RaiseComFailure(result, member);
}

}  // namespace qb
