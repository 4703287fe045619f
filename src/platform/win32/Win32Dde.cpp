#include "platform/win32/Win32Dde.h"

#include <utility>

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Text.h"
#include "platform/win32/Win32TextCodec.h"
#include "runtime/RuntimeError.h"
// Behind the system's headers, since it does not stand alone.
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
  static HDDEDATA CALLBACK Callback(UINT, UINT, HCONV, HSZ, HSZ, HDDEDATA, ULONG_PTR, ULONG_PTR) {
    return nullptr;
  }

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

/// The text in an answer, up to its terminator.
std::string TextIn(HDDEDATA data) {
  DWORD size = 0;
  const char* const bytes = reinterpret_cast<const char*>(DdeAccessData(data, &size));
  if (bytes == nullptr) throw RuntimeError(failure::kDdeWrongFormat);
  Win32TextCodec codec;
  const std::string_view text = std::string_view(bytes, size);
  std::string decoded = codec.Decode(text.substr(0, text.find('\0')), codec.SystemCodePage());
  DdeUnaccessData(data);
  return decoded;
}

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
    if (item.empty()) return {};
    const DdeText name(*instance_, item);
    const HDDEDATA data = DdeClientTransaction(nullptr, 0, conversation_, name.Handle(), CF_TEXT,
                                               XTYP_REQUEST, static_cast<DWORD>(timeout_.count()), nullptr);
    if (data == nullptr) Raise(DdeGetLastError(instance_->Number()), item);
    std::string answer = TextIn(data);
    DdeFreeDataHandle(data);
    return answer;
  }

  bool IsOpen() override {
    CONVINFO state{};
    state.cb = sizeof state;
    return DdeQueryConvInfo(conversation_, QID_SYNC, &state) != 0 && (state.wStatus & ST_CONNECTED) != 0 &&
           IsWindow(state.hwndPartner) != FALSE;  // one that was killed has said nothing
  }

 private:
  [[noreturn]] void Raise(UINT error, std::string_view item) {
    if (!IsOpen() || error == DMLERR_SERVER_DIED || error == DMLERR_NO_CONV_ESTABLISHED) {
      throw RuntimeError(failure::kForeignApplicationQuit);
    }
    if (error == DMLERR_DATAACKTIMEOUT) throw RuntimeError(failure::kDdeTimeout);
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
