#pragma once

#include <functional>
#include <string>

#include "apps/office/Happenings.h"
#include "apps/office/OfficeConnection.h"
#include "apps/office/Uno.h"

namespace qb::office {

/// What the user does in the office, over a line of its own. Documents are told by their paths.
class OfficeUser {
 public:
  explicit OfficeUser(const std::string& pipe);

  /// Writes at the end of a text, or into a shape on the first page.
  void Write(const std::string& path, const std::string& text);
  /// The text of a text document.
  std::string Text(const std::string& path);
  /// Gives a command of the office's menus, such as ".uno:Save", and waits until it is done.
  void Command(const std::string& path, const std::string& command);
  /// Gives a command without waiting for its end: that of a dialog comes when it is closed.
  void Begin(const std::string& path, const std::string& command);
  /// Opens a file, and closes it as it is.
  void Load(const std::string& path);
  void Unload(const std::string& path);
  /// Ends the office.
  void EndOffice();
  /// Has something done in the middle of what the office tells of any document, such as "OnSave".
  void At(const std::string& event, const std::function<void()>& then);
  bool IsModified(const std::string& path);
  /// Whether the keys go to the document's window.
  bool IsActive(const std::string& path);
  bool IsOpen(const std::string& path);
  void StoreCopy(const std::string& path, const std::string& copy, const std::string& filter,
                 const std::string& password = "");
  void StoreAs(const std::string& path, const std::string& name, const std::string& filter);
  std::string BuiltInTitle(const std::string& path);
  /// Runs anything on the office's main thread.
  void Do(const std::function<void()>& work) { line_.Run(work, std::chrono::seconds(60)); }
  Reference<com::sun::star::frame::XDesktop2> Desktop() const { return line_.Desktop(); }
  Reference<uno::XComponentContext> Context() const { return line_.Context(); }
  Reference<com::sun::star::frame::XModel> Model(const std::string& path) const;

 private:
  Happenings happenings_;
  OfficeConnection line_;
};

/// How many windows the session has, dialogs among them. Nobody but the office has any.
int WindowsOnScreen();

}  // namespace qb::office
