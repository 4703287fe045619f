#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "model/CHyperlinks.h"
#include "model/CPhioFile.h"
#include "model/CProperties.h"
#include "runtime/Collection.h"

namespace qb {

/// Role numbers of a language version.
namespace role {
inline constexpr std::int32_t kDstCurr = 0;
inline constexpr std::int32_t kSrcCurr = 1;
inline constexpr std::int32_t kSrcPrev = 2;
inline constexpr std::int32_t kDstPrev = 3;
}  // namespace role

/// One language version of a document.
class CPhioEntry {
 public:
  /// The files, the primary one first.
  Collection<std::shared_ptr<CPhioFile>> Components;
  std::int32_t erRole = 0;

  /// False, with nothing stored, for an unknown role.
  bool Init(std::int32_t nlPHIO, std::string_view nstrRole, std::string_view nstrPHIO_GUID,
            std::string_view nstrPHIO_CLASS, std::string_view nstrDocumentFormat,
            std::string_view nstrDescription, std::string_view nstrPath, std::string_view nstrState,
            std::shared_ptr<CHyperlinks> nHyperlinks, std::shared_ptr<CProperties> nProperties);

  /// Writes the state word to the package.
  void SaveState(std::int32_t lLOIO) const;
  /// Stores the state word in memory only.
  void SetState(std::string_view strNewState) { state_ = strNewState; }
  const SharedText& GetState() const { return state_; }
  const SharedText& GetPath() const { return path_; }
  std::int32_t PhioNo() const { return number_; }
  /// Nothing after a bad property list.
  std::shared_ptr<CProperties> Properties() const { return properties_; }
  /// The description, else the value of the property "DESCRIPTION"; empty without either or without a list.
  std::string GetTitle() const;
  /// Whether there is a property "DESCRIPTION".
  bool HasTitleProperty() const;
  /// Gives the property "DESCRIPTION" the title; the description member stays. A new property is not written.
  /// Raises 91 without a property list.
  bool SetTitle(std::int32_t lLOIO, std::string_view nstrTitle);
  const SharedText& GetDocumentFormat() const { return documentFormat_; }
  /// Writes the properties. True means that this failed. Raises 91 without a property list.
  bool SaveTitle(std::int32_t lLOIO) const;
  /// The list that it was given; without one an empty list, made when first asked for.
  std::shared_ptr<CHyperlinks> Hyperlinks();
  /// Adds a file at the end and returns it; an empty key stands for none.
  std::shared_ptr<CPhioFile> Add(std::string_view FileName, std::string_view FileFormat,
                                 std::string_view ShortName, std::string_view key);
  /// Name of the primary file, else of the first; raises 9 if there are none.
  std::string GetPRIMFileName() const;
  /// The first file of exactly this name; nothing if there is none.
  std::shared_ptr<CPhioFile> GetFile(std::string_view FileName) const;

 private:
  std::int32_t number_ = 0;
  std::shared_ptr<CHyperlinks> hyperlinks_;
  std::shared_ptr<CProperties> properties_;
  SharedText guid_;
  SharedText class_;
  SharedText documentFormat_;
  SharedText description_;
  SharedText path_;
  SharedText state_;
};

}  // namespace qb
