#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "model/CLoioEntry.h"

namespace qb {

// What the commands on a document's files share.

/// The document of `key`, after editors that have gone were noticed. Nothing if it is read-only or open,
/// which a box says. Raises 5 for an unknown key.
std::shared_ptr<CLoioEntry> DocumentToChange(std::string_view key);

/// The component file of the document's translation. Nothing if there is none of this name, which a box says
/// with the text `notFoundKey`, the name and ")".
std::shared_ptr<CPhioFile> ComponentOf(const CLoioEntry& loio, std::string_view component,
                                       std::string_view notFoundKey);

/// Whether the document has a folder for its translation; a box says `noPathKey` if not.
bool HasDstPath(const CLoioEntry& loio, std::string_view noPathKey);

/// What a command on one component file of the selection works on.
struct ChosenComponent {
  std::string key;   ///< the document's
  std::string name;  ///< the file's, as the tree shows it
  std::shared_ptr<CLoioEntry> loio;
  std::shared_ptr<CPhioFile> file;
};

/// The selected component file of a document that may be changed. Nothing if no component is selected, or if
/// the document, the file or the folder is refused with a box as told above.
std::optional<ChosenComponent> SelectedComponentToChange(std::string_view notFoundKey,
                                                         std::string_view noPathKey);

/// Where a file of the document's translation stands; without a name, the folder.
std::string DstPathOf(const CLoioEntry& loio, std::string_view fileName = {});

/// Whether a file or folder may be written or deleted: inside the package's folder, links followed, and not
/// the package file itself. A box names a path that may not.
bool MayChange(std::string_view path);

/// Copies the files of the document's folder into the folder "BAK" in it, unless that is there: it holds the
/// first state and is never renewed. False if it may not be made; raises why it could not be made.
bool SaveFirstState(const CLoioEntry& loio);

/// Deletes a file, a read-only one too.
void DeleteEvenIfReadOnly(std::string_view path);

/// Puts a copy of `source` in the place of the file `target`, which must be there. False if it could not be
/// copied; then the old file stands as it was. Raises why the old file could not be deleted.
bool ReplaceFile(std::string_view source, std::string_view target);

/// Warns in the status line of a document that lists no files any more: the load of a package ends there.
void WarnOfEmptyList(const CLoioEntry& loio);

/// Selects the node in the tree, if there is one of this key.
void SelectInTree(std::string_view key);

}  // namespace qb
