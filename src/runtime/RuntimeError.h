#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace qb {

/// Numbers of the failures that the language itself raises.
namespace failure {
inline constexpr long kInvalidArgument = 5;
inline constexpr long kOverflow = 6;
inline constexpr long kOutOfMemory = 7;
inline constexpr long kIndexOutOfRange = 9;
inline constexpr long kTypeMismatch = 13;
inline constexpr long kInternalError = 51;
inline constexpr long kFileNotFound = 53;
inline constexpr long kDeviceInputOutput = 57;
inline constexpr long kDiskFull = 61;
inline constexpr long kPermissionDenied = 70;
inline constexpr long kPathFileAccess = 75;
inline constexpr long kPathNotFound = 76;
inline constexpr long kObjectNotSet = 91;
inline constexpr long kNoForeignApplication = 282;
inline constexpr long kForeignApplicationRefuses = 285;
inline constexpr long kDdeTimeout = 286;
inline constexpr long kDdeWrongFormat = 290;
inline constexpr long kForeignApplicationQuit = 291;
inline constexpr long kDdeConversationClosed = 292;
inline constexpr long kNoDdeChannel = 293;
inline constexpr long kInvalidLinkTopic = 297;
inline constexpr long kCannotCreateObject = 429;
inline constexpr long kNoSuchMember = 438;
inline constexpr long kKeyAlreadyThere = 457;
/// Raised by commands and editor sessions themselves.
inline constexpr long kOwn = -42;
}  // namespace failure

/// The usual wording of one of the language's own failures; empty for any other number.
std::string_view StandardDescription(long number);

/// A run-time failure on its way to the handler at the end of a procedure.
class RuntimeError : public std::exception {
 public:
  /// An empty description stands for the standard wording of the number.
  explicit RuntimeError(long number, std::string source = {}, std::string description = {},
                        long helpContext = 0, std::string helpFile = {});

  long Number() const { return number_; }
  const std::string& Source() const { return source_; }
  const std::string& Description() const { return description_; }
  long HelpContext() const { return helpContext_; }
  const std::string& HelpFile() const { return helpFile_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  long number_;
  std::string source_;
  std::string description_;
  long helpContext_;
  std::string helpFile_;
};

/// Raises a failure whose description is the standard wording and, in brackets, the name of the thing at
/// fault.
[[noreturn]] void RaiseAbout(long number, std::string_view subject);

/// The failure that a handler has caught and not yet dealt with. Number 0 means none.
struct PendingError {
  long Number = 0;
  std::string Source;
  std::string Description;
  long HelpContext = 0;
  std::string HelpFile;
  long LastDllError = 0;

  void Clear();
  void Set(const RuntimeError& error);
};

/// The one pending error of the process.
extern PendingError Err;

/// Turns the exception being handled into the pending error. Exceptions that are no failures (such as the end
/// of the process) are passed on.
void SetPendingErrorFromCurrentException();

/// Runs `body` with a fresh pending error. True if it came through; false if it failed, and then `Err` says
/// why.
template <class Body>
bool Attempt(Body&& body) {
  Err.Clear();
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const std::exception&) {
    SetPendingErrorFromCurrentException();
    return false;
  }
}

}  // namespace qb
