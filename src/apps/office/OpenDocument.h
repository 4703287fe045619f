#pragma once

#include <chrono>
#include <com/sun/star/frame/XModel.hpp>
#include <rtl/ref.hxx>
#include <string>

#include "apps/office/DocumentListener.h"
#include "apps/office/OfficeConnection.h"
#include "apps/office/Uno.h"

namespace qb::office {

/// A document that is open in the office.
struct OpenDocument {
  int number = 0;
  std::string path;
  bool isReadOnly = false;
  /// False if it can only be read, though it was to be written. Nobody listens to it then, and it has to be
  /// closed again.
  bool isAsAsked = false;
  /// "text", "presentation", "drawing" or "web".
  std::string kind;
  Reference<com::sun::star::frame::XModel> model;
  rtl::Reference<DocumentListener> listener;
  std::chrono::steady_clock::time_point loaded;
};

/// Whether the office has the file open, for us or for its user. Only inside a call on the office's main
/// thread.
bool IsOpen(const OfficeConnection& office, const std::string& path);

/// Opens the file in a window of its own. The document answers to `number` in `happenings`. The addresses
/// in its last words are relative to the file `base`. Raises `Failure` with the codes that the protocol gives
/// for `open`. Only inside a call on the office's main thread.
OpenDocument Open(const OfficeConnection& office, int number, const std::string& path, bool readOnly,
                  const std::string& base, Happenings& happenings);

/// Stores what is modified and can be, and closes. False while a dialog is open in the document. Raises
/// `Failure` or what the office raises if it cannot be stored. Only inside a call on the office's main
/// thread.
bool StoreAndClose(const OpenDocument& document);

/// Closes the document as it is. Raises css::util::CloseVetoException while a dialog is open in it.
void CloseAsItIs(const OpenDocument& document);

}  // namespace qb::office
