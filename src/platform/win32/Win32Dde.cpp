#include "platform/win32/Win32Dde.h"

#include <exception>
#include <optional>
#include <utility>

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Text.h"
#include "platform/win32/Win32TextCodec.h"
#include "runtime/RuntimeError.h"
// Behind the system's headers, since it does not stand alone.
#include <dde.h>
#include <ddeml.h>

namespace qb {

/// The program's registration with the library; all calls are made on the thread that made it.
class DdeInstance {
 public:
  DdeInstance() {
    constexpr DWORD kClient = APPCMD_CLIENTONLY | CBF_SKIP_ALLNOTIFICATIONS;
    if (DdeInitializeW(&number_, Callback, kClient, 0) != DMLERR_NO_ERROR) {
      throw RuntimeError(failure::kNoForeignApplication);
    }
  }
  DdeInstance(const DdeInstance&) = delete;
  DdeInstance& operator=(const DdeInstance&) = delete;
  ~DdeInstance() { DdeUninitialize(number_); }

  DWORD Number() const { return number_; }

 private:
  static HDDEDATA CALLBACK Callback(UINT type, UINT, HCONV, HSZ, HSZ, HDDEDATA data, ULONG_PTR transaction,
                                    ULONG_PTR);

  DWORD number_ = 0;
};

namespace {

/// A text as the library passes it.
class DdeText {
 public:
  /// Raises 5 for a text that the library cannot pass, such as one of more than 255 characters.
  DdeText(const DdeInstance& instance, std::string_view text)
      : instance_(instance.Number()),
        handle_(DdeCreateStringHandleW(instance_, Wide(text).c_str(), CP_WINUNICODE)) {
    if (handle_ == nullptr) RaiseAbout(failure::kInvalidArgument, text);
  }
  DdeText(const DdeText&) = delete;
  DdeText& operator=(const DdeText&) = delete;
  ~DdeText() { DdeFreeStringHandle(instance_, handle_); }

  HSZ Handle() const { return handle_; }

 private:
  DWORD instance_;
  HSZ handle_;
};

/// Deals with what has come for conversations meanwhile.
void TakeWaitingMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, WM_DDE_FIRST, WM_DDE_LAST, PM_REMOVE) != FALSE) {
    DispatchMessageW(&message);
  }
}

/// A request that is under way.
struct PendingRequest {
  DWORD transaction = 0;
  bool done = false;
  std::optional<std::string> answer;  // bytes up to the terminator; nothing if it was refused
  std::exception_ptr failure;         // why the answer could not be taken
};
PendingRequest* pending = nullptr;

/// Looks into an answer, which stays the library's.
class DdeBytes {
 public:
  explicit DdeBytes(HDDEDATA data) : data_(data), bytes_(DdeAccessData(data, &size_)) {}
  DdeBytes(const DdeBytes&) = delete;
  DdeBytes& operator=(const DdeBytes&) = delete;
  ~DdeBytes() {
    if (bytes_ != nullptr) DdeUnaccessData(data_);
  }

  /// The bytes up to their terminator.
  std::string Text() const {
    if (bytes_ == nullptr) return {};
    const std::string_view all(reinterpret_cast<const char*>(bytes_), size_);
    return std::string(all.substr(0, all.find('\0')));
  }

 private:
  HDDEDATA data_;
  DWORD size_ = 0;
  const BYTE* bytes_;
};

class Win32Conversation : public DdeConversation {
 public:
  Win32Conversation(std::shared_ptr<DdeInstance> instance, HCONV conversation,
                    std::chrono::milliseconds timeout)
      : instance_(std::move(instance)), conversation_(conversation), timeout_(timeout) {}
  Win32Conversation(const Win32Conversation&) = delete;
  Win32Conversation& operator=(const Win32Conversation&) = delete;
  ~Win32Conversation() override { DdeDisconnect(conversation_); }

  std::string Request(std::string_view item) override {
    if (!IsOpen()) throw RuntimeError(failure::kForeignApplicationQuit);
    if (item.empty()) return {};  // the library has no empty names; the connection is contact enough
    const DdeText name(*instance_, item);
    TakeWaitingMessages();
    // Not the library's own wait: that of Wine takes any message in between for a refusal.
    PendingRequest request;
    pending = &request;
    const HDDEDATA begun = DdeClientTransaction(nullptr, 0, conversation_, name.Handle(), CF_TEXT,
                                                XTYP_REQUEST, TIMEOUT_ASYNC, &request.transaction);
    if (begun != nullptr) WaitFor(request);
    pending = nullptr;
    // Also one that is over: Wine's library leaves it in front of the next one.
    if (begun != nullptr) DdeAbandonTransaction(instance_->Number(), conversation_, 0);
    if (request.failure != nullptr) std::rethrow_exception(request.failure);
    if (!request.answer) Raise(begun != nullptr && !request.done, item);
    Win32TextCodec codec;
    return codec.Decode(*request.answer, codec.SystemCodePage());
  }

  bool IsOpen() override {
    CONVINFO state{};
    state.cb = sizeof state;
    return DdeQueryConvInfo(conversation_, QID_SYNC, &state) != 0 && (state.wStatus & ST_CONNECTED) != 0 &&
           IsWindow(state.hwndPartner) != FALSE;  // one that was killed has said nothing
  }

 private:
  void WaitFor(const PendingRequest& request) {
    constexpr DWORD kLook = 50;  // milliseconds between two looks whether the other program lives
    const ULONGLONG start = GetTickCount64();
    while (!request.done && IsOpen() && GetTickCount64() - start < static_cast<ULONGLONG>(timeout_.count())) {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, kLook, QS_POSTMESSAGE);
      TakeWaitingMessages();
    }
  }

  [[noreturn]] void Raise(bool unanswered, std::string_view item) {
    if (!IsOpen()) throw RuntimeError(failure::kForeignApplicationQuit);
    if (unanswered) throw RuntimeError(failure::kDdeTimeout);
    RaiseAbout(failure::kForeignApplicationRefuses, item);
  }

  std::shared_ptr<DdeInstance> instance_;
  HCONV conversation_;
  std::chrono::milliseconds timeout_;
};

/// The library waits without limit for windows that hang. A program has its DDE name for the class of its
/// window as a rule, so that one that hangs is noticed before.
void RaiseIfHung(std::string_view application, std::chrono::milliseconds timeout) {
  HWND const window = FindWindowW(Wide(application).c_str(), nullptr);
  DWORD_PTR ignored = 0;
  if (window != nullptr &&
      SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, static_cast<UINT>(timeout.count()),
                          &ignored) == 0 &&
      IsWindow(window) != FALSE) {
    throw RuntimeError(failure::kDdeTimeout);
  }
}

}  // namespace

HDDEDATA CALLBACK DdeInstance::Callback(UINT type, UINT, HCONV, HSZ, HSZ, HDDEDATA data,
                                        ULONG_PTR transaction, ULONG_PTR) {
  if (type != XTYP_XACT_COMPLETE || pending == nullptr || transaction != pending->transaction) return nullptr;
  pending->done = true;
  if (data == nullptr) return nullptr;
  try {
    pending->answer = DdeBytes(data).Text();
  } catch (...) {
    pending->failure = std::current_exception();  // nothing may be raised through the library
  }
  return nullptr;
}

std::unique_ptr<DdeConversation> Win32Dde::Connect(std::string_view application, std::string_view topic) {
  if (instance_ == nullptr) instance_ = std::make_shared<DdeInstance>();
  RaiseIfHung(application, timeout_);
  const DdeText applicationName(*instance_, application);
  const DdeText topicName(*instance_, topic);
  const HCONV conversation =
      DdeConnect(instance_->Number(), applicationName.Handle(), topicName.Handle(), nullptr);
  if (conversation == nullptr) RaiseAbout(failure::kNoForeignApplication, application);
  return std::make_unique<Win32Conversation>(instance_, conversation, timeout_);
}

}  // namespace qb
