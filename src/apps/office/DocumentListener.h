#pragma once

#include <atomic>
#include <com/sun/star/document/XDocumentEventListener.hpp>
#include <com/sun/star/frame/XController2.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <com/sun/star/util/XCloseListener.hpp>
#include <cppuhelper/implbase2.hxx>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "apps/office/Happenings.h"

namespace qb::office {

/// What a document said when it was closed.
struct LastWords {
  std::optional<std::string> title;
  std::string text;  ///< as `TextForLinks` gives it
};

/// Tells what becomes of one document. The office calls it on threads of its own.
class DocumentListener : public cppu::WeakImplHelper2<com::sun::star::document::XDocumentEventListener,
                                                      com::sun::star::util::XCloseListener> {
 public:
  /// `happenings` outlives the line to the office. `base` is what the addresses in the last words are
  /// relative to.
  DocumentListener(int document, std::string path, std::string kind, std::string base,
                   const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context,
                   Happenings& happenings);

  /// Begins to listen; only inside a call on the office's main thread.
  void Listen(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& model);

  /// How often it was saved.
  int Saves() const { return saves_; }
  /// The program knows what the first `saves` saves left, which need no last words.
  void NoteKnown(int saves) { known_ = saves; }
  /// What its last save left, of a document that is closed and was not asked since; else nothing.
  const std::optional<LastWords>& Last() const { return last_; }

  void SAL_CALL documentEventOccured(const com::sun::star::document::DocumentEvent& event) override;
  void SAL_CALL queryClosing(const com::sun::star::lang::EventObject& source, sal_Bool owns) override;
  void SAL_CALL notifyClosing(const com::sun::star::lang::EventObject& source) override;
  void SAL_CALL disposing(const com::sun::star::lang::EventObject& source) override;

 private:
  void Keep(const com::sun::star::uno::Reference<com::sun::star::frame::XController2>& view);

  const int document_;
  const std::string path_;
  const std::string kind_;
  const std::string base_;
  const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> context_;
  Happenings& happenings_;
  /// False after the user has stored the document under another name: from then on it is another file's.
  std::atomic<bool> isOwnFile_ = true;
  std::atomic<bool> isClosed_ = false;
  std::atomic<int> saves_ = 0;
  std::atomic<int> known_ = 0;
  /// Written before the close is told, read behind it.
  std::optional<LastWords> last_;
  /// All views of the document, kept as the document is: see `OfficeConnection::Keep`.
  std::vector<com::sun::star::uno::Reference<com::sun::star::frame::XController2>> views_;
  std::mutex viewsMutex_;
};

}  // namespace qb::office
