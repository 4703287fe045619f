#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "editors/DocumentBridge.h"
#include "model/CLoioEntry.h"
#include "platform/Shell.h"
#include "runtime/Collection.h"

namespace qb {

/// One document that is out in an external editor: starts the editor, sees it go away, and turns what it did
/// into a save or a close on the document. Owned by shared pointers: an event of the bridge keeps its session
/// alive until it has been handled.
class CEditor : public std::enable_shared_from_this<CEditor> {
 public:
  /// Results of `LaunchApplication`.
  static constexpr std::int32_t kFailed = 1;
  static constexpr std::int32_t kStarted = 2;
  static constexpr std::int32_t kFilesMissing = 7;

  /// Holds the source if it has a bridge of its own.
  const std::shared_ptr<IBridge>& objSecondBridge() const { return objSecondBridge_; }
  /// The translation; nothing outside the bridge.
  const std::shared_ptr<IBridgeDocument>& docDst() const { return docDst_; }
  const std::shared_ptr<IBridgeDocument>& docSrc() const { return docSrc_; }
  const std::shared_ptr<IBridge>& objBridge() const { return objBridge_; }

  /// The MIME type that a bridge knows for the path's extension; empty for any other.
  static std::string GetMIMEType(std::string_view path);

  /// Whether a path leads out of the package or cannot be told to a program; a box names it then.
  static bool RefusesPath(std::string_view path);

  /// Sends the document of this key to its editor. True if the session is open.
  bool OpenForTranslation(std::string_view strLOIOGUID);
  /// Key of the session's document.
  const std::string& LOIOGUID() const { return strLOIOGUID_; }
  /// Whether the session is open. Notices an editor that has gone: saves or closes the document and raises
  /// `OnClose`.
  bool IsOpen();
  /// Ends the session. True if it is closed.
  bool CloseEditor();
  /// Takes title and hyperlinks over into the package and marks the document as changed. Raises what asking
  /// the open document for them raises.
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

  /// Events of the bridge. They raise what goes wrong in them.
  void docDst_OnPostClose();
  void docDst_OnPostLocalSave();
  void docSrc_OnPostClose();

  /// Reads title and hyperlinks out of the saved document. True if both are good. Raises what asking the open
  /// document for its links raises.
  bool ExtractHyperlinksAndTitle();
  /// Reads them out of an HTML file. Nothing if it could not be parsed, which is reported.
  std::shared_ptr<Collection<std::string>> ExtractHyperlinksAndTitleFromFile(std::string_view path,
                                                                             std::string& title);

  /// Raised when the session has ended.
  std::function<void()> OnClose;

 private:
  void OpenDocument();
  void OpenThroughBridge(const CLoioEntry& loio, const std::string& source, const std::string& translation);
  std::int32_t CountOpenDocuments(bool single, const std::string& source, const std::string& translation);
  void OpenTranslation(const std::string& translation, std::int32_t mode);
  void WriteTitle(const CLoioEntry& loio);
  void ConnectTranslation();
  void ConnectSource();
  void ForgetBridge();
  bool HoldsBack(bool& closed) const;
  void TakeHeldCloses();
  void CloseGroups(bool single);
  bool CloseBridgeSession(bool single);
  bool ExtractThroughBridge(const CLoioEntry& loio);
  void EndSession(bool changed);
  bool TranslationHasChanged(const CLoioEntry& loio, bool lookForCompanion) const;
  void CloseProcessSession(const CLoioEntry& loio, std::string_view closeEditorText, bool& stillRuns);
  void RaiseOnClose();

  std::shared_ptr<IBridge> objSecondBridge_;
  std::shared_ptr<IBridgeDocument> docDst_;
  std::shared_ptr<IBridgeDocument> docSrc_;
  std::shared_ptr<IBridge> objBridge_;
  ProcessHandle hEditorProcess_ = 0;
  std::shared_ptr<IBridgeGroup> grpDst_;
  std::shared_ptr<IBridgeGroup> grpSrc_;
  std::int32_t lngOpenDocuments_ = 0;
  bool bIsOpen_ = false;
  bool ending_ = false;  ///< a box of the end is up: a poll meanwhile must not end the session once more
  /// The session is being opened, or a save taken over: a close that comes meanwhile waits for its end, since
  /// a save on a closed document would be no change.
  bool busy_ = false;
  bool dstClosed_ = false;  ///< closes that wait
  bool srcClosed_ = false;
  bool bContentChanged_ = false;  ///< nothing reads it
  std::shared_ptr<Collection<std::string>> colHyperlinks_;
  std::string strTitle_;
  std::string strLOIOGUID_;
};

}  // namespace qb
