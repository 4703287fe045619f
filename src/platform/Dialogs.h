#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qb {

/// Bits and values of a message box's style and answer.
namespace box {
inline constexpr int kOkOnly = 0;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kStop = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;
inline constexpr int kSecondButtonDefault = 256;
inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;
inline constexpr int kYes = 6;
inline constexpr int kNo = 7;
}  // namespace box

struct MessageBoxRequest {
  std::string text;
  int style = box::kOkOnly;          ///< bits of `box`
  std::optional<std::string> title;  ///< absent: the program's own title
  std::string helpFile;
  long helpContext = 0;
};

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  /// Shows the box modally and returns the answer, one of `box::kOk`, `kCancel`, `kYes`, `kNo`. Window events
  /// and timers run meanwhile.
  virtual int Show(const MessageBoxRequest& request) = 0;
};

/// Bits of `OpenFileRecord::flags`.
namespace openfile {
inline constexpr std::uint32_t kReadOnly = 1;
inline constexpr std::uint32_t kHideReadOnly = 4;
inline constexpr std::uint32_t kAllowMultiSelect = 512;
inline constexpr std::uint32_t kFileMustExist = 4096;
}  // namespace openfile

/// What goes into the system's open-file dialog and what comes back.
struct OpenFileRecord {
  std::string filter;             ///< pairs of NUL-terminated texts, ended by one more NUL
  std::uint32_t filterIndex = 1;  ///< from 1; in and out
  std::string fileName;           ///< in: preset; out: path, or directory and names separated by blanks
  std::string fileTitle;          ///< out: the name without its directory
  std::string initialDirectory;   ///< empty: the system's choice
  std::string title;
  std::string defaultExtension;
  std::uint32_t flags = 0;            ///< bits of `openfile`; in and out
  std::optional<std::int64_t> owner;  ///< window handle; absent: none
};

class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  /// Shows the dialog modally. False when it was cancelled. Names that it gives are cut to 2047 characters.
  virtual bool GetOpenFileName(OpenFileRecord& record) = 0;
};

class Clipboard {
 public:
  static constexpr std::int16_t kTextFormat = 1;
  virtual ~Clipboard() = default;
  /// Replaces what the clipboard holds.
  virtual void SetText(std::string_view text, std::int16_t format) = 0;
};

class MousePointer {
 public:
  static constexpr int kDefault = 0;
  static constexpr int kHourglass = 11;
  virtual ~MousePointer() = default;
  virtual void Set(int pointer) = 0;
};

}  // namespace qb
