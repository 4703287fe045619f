#pragma once

#include <memory>
#include <optional>

#include "platform/win32/ComHeaders.h"

namespace qb {

/// How a document tells its events.
struct EventNumbers {
  IID listener;  ///< what a document calls its listener by
  DISPID postClose;
  DISPID postLocalSave;
};

/// What the type library of the Document Bridge tells: the names in it do not count, only positions.
struct BridgeLibrary {
  CLSID bridgeClass;  ///< the one class that can be created
  IID bridge;         ///< its default interface
  IID group;
  IID document;
  ComPtr<ITypeLib> types;
  /// By the class of documents; nothing if the library tells of no such class.
  std::optional<EventNumbers> events;
};

/// The events of a listener that the library describes; nothing if it does not, or has too few.
std::optional<EventNumbers> EventsByListener(ITypeLib& library, const IID& listener);

/// The library that is registered on this machine in its highest version; nothing if none is. Raises if its
/// type library cannot be read or does not have the members that the program uses.
std::shared_ptr<const BridgeLibrary> FindBridgeLibrary();

/// Positions of the members that the program uses, counted behind the entries of every automation interface.
namespace position {
inline constexpr int kBridgeGroups = 16;
inline constexpr int kBridgeQueryCapability = 22;
inline constexpr int kGroupsItem = 17;
inline constexpr int kGroupsAdd = 18;
inline constexpr int kGroupDocuments = 12;
inline constexpr int kGroupClose = 17;
inline constexpr int kGroupArrange = 18;
inline constexpr int kDocumentsCount = 12;
inline constexpr int kDocumentsOpen = 19;
inline constexpr int kDocumentApplication = 28;
inline constexpr int kDocumentHostDocument = 30;
inline constexpr int kDocumentCustomProperties = 32;
inline constexpr int kDocumentHyperlinks = 33;
inline constexpr int kPropertiesItem = 17;
inline constexpr int kPropertyReadValue = 12;
inline constexpr int kPropertyWriteValue = 13;
/// Among the events of a document.
inline constexpr int kOnPostClose = 4;
inline constexpr int kOnPostLocalSave = 5;
}  // namespace position

}  // namespace qb
