#include "apps/office/DocumentListener.h"

#include <algorithm>
#include <com/sun/star/document/XDocumentEventBroadcaster.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <exception>
#include <iostream>
#include <utility>

#include "apps/office/CustomTitle.h"
#include "apps/office/DocumentLinks.h"
#include "apps/office/FileChecks.h"
#include "apps/office/Uno.h"
#include "apps/office/UnoText.h"

namespace qb::office {

namespace document = com::sun::star::document;
namespace lang = com::sun::star::lang;

DocumentListener::DocumentListener(int document, std::string path, std::string kind, std::string base,
                                   const Reference<uno::XComponentContext>& context, Happenings& happenings)
    : document_(document),
      path_(std::move(path)),
      kind_(std::move(kind)),
      base_(std::move(base)),
      context_(context),
      happenings_(happenings) {
}

void DocumentListener::Listen(const Reference<com::sun::star::frame::XModel>& model) {
  Reference<document::XDocumentEventBroadcaster>(model, UNO_QUERY_THROW)->addDocumentEventListener(this);
  Reference<com::sun::star::util::XCloseable>(model, UNO_QUERY_THROW)->addCloseListener(this);
}

void DocumentListener::Keep(const Reference<com::sun::star::frame::XController2>& view) {
  const std::lock_guard lock(viewsMutex_);
  const bool isKept = std::any_of(views_.begin(), views_.end(),
                                  [&view](const auto& kept) { return kept.get() == view.get(); });
  if (!isKept) views_.push_back(view);
}

void DocumentListener::documentEventOccured(const document::DocumentEvent& event) {
  Keep(event.ViewController);
  if (event.EventName == "OnSaveAsDone") {
    const Reference<com::sun::star::frame::XModel> model(event.Source, UNO_QUERY);
    isOwnFile_ = model.is() && IsSameFile(FilePath(model->getURL()), path_);
  }
  if ((event.EventName == "OnSaveDone" || event.EventName == "OnSaveAsDone") && isOwnFile_) {
    ++saves_;
    happenings_.Push({Happening::Kind::kSaved, document_});
  }
  if (event.EventName == "OnSaveFailed") RemoveEmptyLock(path_);
}

void DocumentListener::queryClosing(const lang::EventObject& source, sal_Bool /*owns*/) {
  // Who saves at the close leaves nobody the time to ask.
  last_.reset();
  if (known_ == saves_) return;
  const Reference<com::sun::star::frame::XModel> model(source.Source, UNO_QUERY);
  if (!model.is()) return;
  try {
    LastWords last;
    last.title = CustomTitle(model);
    last.text = TextForLinks(context_, model, kind_, base_);
    last_ = std::move(last);
  } catch (const com::sun::star::uno::Exception& failure) {
    std::cerr << path_ << " could not be read at its close: " << ToUtf8(failure.Message) << std::endl;
  } catch (const std::exception& failure) {
    std::cerr << path_ << " could not be read at its close: " << failure.what() << std::endl;
  }
}

void DocumentListener::notifyClosing(const lang::EventObject& /*source*/) {
}

void DocumentListener::disposing(const lang::EventObject& /*source*/) {
  // Both kinds of listening end with this.
  if (!isClosed_.exchange(true)) happenings_.Push({Happening::Kind::kClosed, document_});
}

}  // namespace qb::office
