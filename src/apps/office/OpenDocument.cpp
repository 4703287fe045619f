#include "apps/office/OpenDocument.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/frame/XStorable2.hpp>
#include <com/sun/star/util/CloseVetoException.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XModifiable.hpp>

#include "apps/office/Failure.h"
#include "apps/office/FileChecks.h"
#include "apps/office/FileType.h"
#include "apps/office/Questions.h"
#include "apps/office/UnoText.h"

namespace qb::office {

namespace frame = com::sun::star::frame;
namespace document = com::sun::star::document;

namespace {

/// Nothing of the document runs, nothing is fetched for it, and a read-only one stays so: the office would
/// otherwise offer a button that makes it editable.
Arguments LoadArguments(const FileType& type, bool readOnly, const rtl::Reference<Questions>& questions) {
  return ToArguments({Named("TypeName", Any(type.type)), Named("FilterName", Any(type.filter)),
                      Named("ReadOnly", Any(readOnly)), Named("LockEditDoc", Any(readOnly)),
                      Named("LockSave", Any(readOnly)),
                      Named("MacroExecutionMode", Any(document::MacroExecMode::NEVER_EXECUTE)),
                      Named("UpdateDocMode", Any(document::UpdateDocMode::NO_UPDATE)),
                      Named("InteractionHandler", HandlerOf(questions))});
}

/// Stores to the document's own file. What the office would ask meanwhile ends in its failure.
void Store(const OpenDocument& opened) {
  const rtl::Reference<Questions> questions(new Questions());
  Reference<com::sun::star::frame::XStorable2>(opened.model, UNO_QUERY_THROW)
      ->storeSelf(ToArguments({Named("InteractionHandler", HandlerOf(questions))}));
}

}  // namespace

bool IsOpen(const OfficeConnection& office, const std::string& path) {
  const auto components = office.Desktop()->getComponents()->createEnumeration();
  while (components->hasMoreElements()) {
    const Reference<frame::XModel> model(components->nextElement(), UNO_QUERY);
    if (model.is() && IsSameFile(FilePath(model->getURL()), path)) return true;
  }
  return false;
}

OpenDocument Open(const OfficeConnection& office, int number, const std::string& path, bool readOnly,
                  const std::string& base, Happenings& happenings) {
  // Two windows with one file would store over each other, and the first one closed takes the lock away from
  // both.
  if (IsOpen(office, path)) throw Failure("already-open", path + " is open in the office already");
  const FileType type = DetectFileType(office.Context(), path);
  if (type.kind.empty()) {
    throw Failure("unsupported", path + " is a kind of document that is not edited here");
  }
  if (!readOnly && !type.isWritable) {
    throw Failure("unsupported", path + " can be read by the office, but not be written");
  }
  if (!readOnly) RemoveDesertedLock(path);

  OpenDocument opened;
  opened.number = number;
  opened.path = path;
  opened.isReadOnly = readOnly;
  opened.kind = type.kind;
  const rtl::Reference<Questions> questions(new Questions());
  opened.model.set(office.Desktop()->loadComponentFromURL(FileUrl(path), "_blank", 0,
                                                          LoadArguments(type, readOnly, questions)),
                   UNO_QUERY);
  if (!opened.model.is()) {
    if (const auto failure = questions->WhyNot(path)) throw *failure;
    if (!readOnly && HasLock(path)) throw Failure("locked", path + " is open in another office");
    throw Failure("damaged", path + " cannot be read by the office");
  }
  office.Keep(opened.model);
  opened.loaded = std::chrono::steady_clock::now();
  opened.isAsAsked = Reference<frame::XStorable>(opened.model, UNO_QUERY_THROW)->isReadonly() ==
                     static_cast<sal_Bool>(readOnly);
  if (!opened.isAsAsked) return opened;
  opened.listener.set(new DocumentListener(number, path, opened.kind, base, office.Context(), happenings));
  office.Keep(static_cast<cppu::OWeakObject*>(opened.listener.get()));
  opened.listener->Listen(opened.model);
  return opened;
}

bool StoreAndClose(const OpenDocument& opened) {
  const Reference<com::sun::star::util::XModifiable> modifiable(opened.model, UNO_QUERY_THROW);
  if (modifiable->isModified()) {
    if (opened.isReadOnly) {
      modifiable->setModified(false);
    } else {
      Store(opened);
    }
  }
  try {
    CloseAsItIs(opened);
    return true;
  } catch (const com::sun::star::util::CloseVetoException&) {
    return false;
  }
}

void CloseAsItIs(const OpenDocument& document) {
  Reference<com::sun::star::util::XCloseable>(document.model, UNO_QUERY_THROW)->close(false);
}

}  // namespace qb::office
