#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "model/CLoioEntry.h"
#include "platform/Shell.h"
#include "runtime/Collection.h"

namespace qb {

/// One document that is out in an external editor: starts the editor, sees it go away, and turns what it did
/// into a save or a close on the document.
class CEditor {
 public:
  /// Results of `LaunchApplication`.
  static constexpr std::int32_t kFailed = 1;
  static constexpr std::int32_t kStarted = 2;
  static constexpr std::int32_t kFilesMissing = 7;

  /// The MIME type that a bridge knows for the path's extension; empty for any other.
  static std::string GetMIMEType(std::string_view path);

  /// Sends the document of this key to its editor. True if the session is open.
  bool OpenForTranslation(std::string_view strLOIOGUID);
  /// Key of the session's document.
  const std::string& LOIOGUID() const { return strLOIOGUID_; }
  /// Whether the session is open. Notices an editor that has gone: saves or closes the document and raises
  /// `OnClose`.
  bool IsOpen();
  /// Ends the session. True if it is closed.
  bool CloseEditor();
  /// Takes title and hyperlinks over into the package and marks the document as changed.
  void DoSave();
  /// Starts the text editor, or the program for "Translate", "Edit" or "Open". True if one was started.
  bool Launch(std::string& source, std::string& translation, ProcessHandle& hProcess, bool useTextEditor);
  /// Puts the path's `.ttx` companion in its place, if there is one.
  void ChangeXMLToTTX(std::string& path);
  /// One of the results above; `hProcess` is the started process.
  std::int32_t LaunchApplication(std::string_view strEditor, std::string_view strSourceFileName,
                                 std::string_view strTranslationFileName, ProcessHandle& hProcess,
                                 std::string_view Verb);
  bool IsProcessRunning(ProcessHandle hProcess);
  /// Reads title and hyperlinks out of the saved document. True if both are good.
  bool ExtractHyperlinksAndTitle();

  /// Raised when the session has ended.
  std::function<void()> OnClose;

 private:
  void OpenDocument();
  void EndSession(bool changed);
  bool TranslationHasChanged(const CLoioEntry& loio, bool lookForCompanion) const;
  void CloseProcessSession(const CLoioEntry& loio, std::string_view closeEditorText, bool& stillRuns);
  void RaiseOnClose();

  ProcessHandle hEditorProcess_ = 0;
  bool bIsOpen_ = false;
  bool ending_ = false;  ///< a box of the end is up: a poll meanwhile must not end the session once more
  bool bContentChanged_ = false;  ///< nothing reads it
  Collection<std::string> colHyperlinks_;
  std::string strTitle_;
  std::string strLOIOGUID_;
};

}  // namespace qb
