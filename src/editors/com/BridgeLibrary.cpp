#include "editors/com/BridgeLibrary.h"

#include <vector>

#include "editors/com/RegisteredTypeLibrary.h"
#include "editors/com/TypeDescription.h"
#include "platform/win32/ComFailure.h"
#include "platform/win32/Win32Text.h"

namespace qb {
namespace {

constexpr const wchar_t* kLibrary = L"{BD85A42C-52B0-4886-BE5A-64193ECCAB1B}";
constexpr IID kDocument = {0x9FA46620, 0x4E56, 0x11D4, {0xB6, 0xA9, 0x00, 0x60, 0x08, 0x78, 0x31, 0x68}};

/// The classes of a library.
std::vector<ComPtr<ITypeInfo>> ClassesOf(ITypeLib& library) {
  std::vector<ComPtr<ITypeInfo>> classes;
  for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
    ComPtr<ITypeInfo> type;
    CheckCom(library.GetTypeInfo(index, type.GetAddressOf()), "type library of the Document Bridge");
    if (TraitsOf(*type.Get()).kind == TKIND_COCLASS) classes.push_back(type);
  }
  return classes;
}

/// The one class that can be created.
ComPtr<ITypeInfo> CreatableOf(const std::vector<ComPtr<ITypeInfo>>& classes) {
  ComPtr<ITypeInfo> creatable;
  for (const auto& theClass : classes) {
    if ((TraitsOf(*theClass.Get()).flags & TYPEFLAG_FCANCREATE) == 0) continue;
    if (creatable != nullptr) RaiseUnusableLibrary("it has more than one class that can be created");
    creatable = theClass;
  }
  if (creatable == nullptr) RaiseUnusableLibrary("it has no class that can be created");
  return creatable;
}

EventNumbers NumbersOf(const TypeDescription& events) {
  return {events.Identifier(), events.EventNumber(position::kOnPostClose),
          events.EventNumber(position::kOnPostLocalSave)};
}

/// The events that the class of documents raises.
std::optional<EventNumbers> EventsOf(const std::vector<ComPtr<ITypeInfo>>& classes) {
  for (const auto& theClass : classes) {
    if (!TypeDescription::Implements(*theClass.Get(), kDocument)) continue;
    if (const auto events = TypeDescription::DefaultOf(*theClass.Get(), true)) {
      return NumbersOf(TypeDescription(events));
    }
  }
  return std::nullopt;
}

BridgeLibrary Read(ITypeLib& library) {
  const auto classes = ClassesOf(library);
  const auto creatable = CreatableOf(classes);
  const TypeDescription bridge(creatable);
  bridge.MustHave(position::kBridgeGroups, 1);
  bridge.MustHave(position::kBridgeQueryCapability, 3);
  const TypeDescription groups = bridge.ResultOf(position::kBridgeGroups);
  groups.MustHave(position::kGroupsItem, 2);
  groups.MustHave(position::kGroupsAdd, 2);
  const TypeDescription group = groups.ResultOf(position::kGroupsItem);
  group.MustHave(position::kGroupDocuments, 1);
  group.MustHave(position::kGroupClose, 0);
  group.MustHave(position::kGroupArrange, 1);
  const TypeDescription documents = group.ResultOf(position::kGroupDocuments);
  documents.MustHave(position::kDocumentsCount, 1);
  documents.MustHave(position::kDocumentsOpen, 3);

  ComPtr<ITypeInfo> found;
  CheckCom(library.GetTypeInfoOfGuid(kDocument, found.GetAddressOf()), "type library of the Document Bridge");
  const TypeDescription document(found);
  document.MustHave(position::kDocumentApplication, 1);
  document.MustHave(position::kDocumentHostDocument, 1);
  document.MustHave(position::kDocumentCustomProperties, 1);
  document.MustHave(position::kDocumentHyperlinks, 1);
  const TypeDescription properties = document.ResultOf(position::kDocumentCustomProperties);
  properties.MustHave(position::kPropertiesItem, 2);
  const TypeDescription property = properties.ResultOf(position::kPropertiesItem);
  property.MustHave(position::kPropertyReadValue, 1);
  property.MustHave(position::kPropertyWriteValue, 1);

  return {TraitsOf(*creatable.Get()).identifier,
          bridge.Identifier(),
          group.Identifier(),
          kDocument,
          &library,
          EventsOf(classes)};
}

}  // namespace

std::shared_ptr<const BridgeLibrary> FindBridgeLibrary() {
  const auto file = RegisteredTypeLibrary(kLibrary);
  if (!file) return nullptr;
  ComPtr<ITypeLib> library;
  CheckCom(LoadTypeLibEx(file->c_str(), REGKIND_NONE, library.GetAddressOf()), Utf8(*file));
  return std::make_shared<const BridgeLibrary>(Read(*library.Get()));
}

std::optional<EventNumbers> EventsByListener(ITypeLib& library, const IID& listener) {
  ComPtr<ITypeInfo> type;
  if (FAILED(library.GetTypeInfoOfGuid(listener, type.GetAddressOf()))) return std::nullopt;
  const TypeDescription events(type);
  if (!events.HasEvent(position::kOnPostLocalSave)) return std::nullopt;
  return NumbersOf(events);
}

}  // namespace qb
