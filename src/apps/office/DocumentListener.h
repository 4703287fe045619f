#pragma once

#include <atomic>
#include <com/sun/star/document/XDocumentEventListener.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/util/XCloseListener.hpp>
#include <cppuhelper/implbase2.hxx>
#include <string>

#include "apps/office/Happenings.h"

namespace qb::office {

/// Tells what becomes of one document. The office calls it on threads of its own.
class DocumentListener : public cppu::WeakImplHelper2<com::sun::star::document::XDocumentEventListener,
                                                      com::sun::star::util::XCloseListener> {
 public:
  /// `happenings` outlives the line to the office.
  DocumentListener(int document, std::string path, Happenings& happenings);

  /// Begins to listen; only inside a call on the office's main thread.
  void Listen(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& model);

  void SAL_CALL documentEventOccured(const com::sun::star::document::DocumentEvent& event) override;
  void SAL_CALL queryClosing(const com::sun::star::lang::EventObject& source, sal_Bool owns) override;
  void SAL_CALL notifyClosing(const com::sun::star::lang::EventObject& source) override;
  void SAL_CALL disposing(const com::sun::star::lang::EventObject& source) override;

 private:
  const int document_;
  const std::string path_;
  Happenings& happenings_;
  /// False after the user has stored the document under another name: from then on it is another file's.
  std::atomic<bool> isOwnFile_ = true;
  std::atomic<bool> isClosed_ = false;
};

}  // namespace qb::office
