#include "runtime/RuntimeError.h"

#include <array>
#include <new>

namespace qb {

PendingError Err;

namespace {

struct Wording {
  long number;
  std::string_view text;
};

constexpr std::array<Wording, 24> kWordings{{
    {failure::kInvalidArgument, "Invalid procedure call or argument"},
    {failure::kOverflow, "Overflow"},
    {failure::kOutOfMemory, "Out of memory"},
    {failure::kIndexOutOfRange, "Subscript out of range"},
    {failure::kTypeMismatch, "Type mismatch"},
    {failure::kInternalError, "Internal error"},
    {failure::kFileNotFound, "File not found"},
    {failure::kDeviceInputOutput, "Device I/O error"},
    {failure::kDiskFull, "Disk full"},
    {failure::kPermissionDenied, "Permission denied"},
    {failure::kPathFileAccess, "Path/File access error"},
    {failure::kPathNotFound, "Path not found"},
    {failure::kObjectNotSet, "Object variable not set"},
    {failure::kNoForeignApplication, "No foreign application responded to a DDE initiate"},
    {failure::kForeignApplicationRefuses, "Foreign application won't perform DDE method or operation"},
    {failure::kDdeTimeout, "Timeout while waiting for DDE response"},
    {failure::kDdeWrongFormat, "Data in wrong format"},
    {failure::kForeignApplicationQuit, "Foreign application quit"},
    {failure::kDdeConversationClosed, "DDE conversation closed or changed"},
    {failure::kNoDdeChannel, "DDE method invoked with no channel open"},
    {failure::kInvalidLinkTopic, "Can't set LinkMode; invalid LinkTopic"},
    {failure::kCannotCreateObject, "The automation object cannot be created"},
    {failure::kNoSuchMember, "Object doesn't support this property or method"},
    {failure::kKeyAlreadyThere, "This key is already associated with an element of this collection"},
}};

}  // namespace

std::string_view StandardDescription(long number) {
  for (const Wording& wording : kWordings) {
    if (wording.number == number) return wording.text;
  }
  return {};
}

RuntimeError::RuntimeError(long number, std::string source, std::string description, long helpContext,
                           std::string helpFile)
    : number_(number),
      source_(std::move(source)),
      description_(description.empty() ? std::string(StandardDescription(number)) : std::move(description)),
      helpContext_(helpContext),
      helpFile_(std::move(helpFile)) {
}

void RaiseAbout(long number, std::string_view subject) {
  throw RuntimeError(number, {},
                     std::string(StandardDescription(number)) + " ('" + std::string(subject) + "')");
}

void PendingError::Clear() {
  // Keeps the storage of the texts: every protected call begins with this.
  Number = 0;
  Source.clear();
  Description.clear();
  HelpContext = 0;
  HelpFile.clear();
  LastDllError = 0;
}

void PendingError::Set(const RuntimeError& error) {
  Number = error.Number();
  Source = error.Source();
  Description = error.Description();
  HelpContext = error.HelpContext();
  HelpFile = error.HelpFile();
  LastDllError = 0;
}

void SetPendingErrorFromCurrentException() {
  try {
    throw;
  } catch (const RuntimeError& error) {
    Err.Set(error);
  } catch (const std::bad_alloc&) {
    Err.Set(RuntimeError(failure::kOutOfMemory));
  } catch (const std::exception& error) {
    Err.Set(RuntimeError(failure::kInternalError, {}, error.what()));
  }
}

}  // namespace qb
