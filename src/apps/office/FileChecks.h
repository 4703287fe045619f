#pragma once

#include <string>

namespace qb::office {

/// What can be seen of a file before the office is asked. Raises `Failure`: "missing", "folder", "damaged"
/// (an empty file), "encrypted" (a presentation, of which the office only says that it cannot read it),
/// "office" (not to be read, or not to be written if `forWriting`).
void CheckFile(const std::string& path, bool forWriting);

/// Removes the lock of an office that a dead helper had started in another profile of ours, and one in which
/// nothing stands: nobody else would, and it would keep the document closed for ever. Other locks stay.
void RemoveDesertedLock(const std::string& path);

/// Removes the lock beside a document that is open here if nothing stands in it: one made while the disk was
/// full. The office would take it for another's, and would not store the document any more.
void RemoveEmptyLock(const std::string& path);

/// Whether an office has locked the file.
bool HasLock(const std::string& path);

}  // namespace qb::office
