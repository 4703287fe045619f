#include "editors/com/ComBridge.h"

#include <string>
#include <utility>

#include "editors/com/ComDocument.h"
#include "editors/com/ComObject.h"
#include "platform/win32/ComApartment.h"
#include "platform/win32/ComFailure.h"
#include "platform/win32/ComValues.h"

namespace qb {
namespace {

class ComDocuments : public ComObject<IBridgeDocuments> {
 public:
  using ComObject::ComObject;
  std::int32_t Count() override {
    LONG count = 0;
    Call(position::kDocumentsCount, "Count", &count);
    return count;
  }
  std::shared_ptr<BridgeObject> Open(std::string_view path, std::int32_t mode) override {
    const auto library = TheLibrary();
    const ComText text(path);
    const auto object = CallForObject(position::kDocumentsOpen, "Open", text.Get(), LONG{mode});
    if (object == nullptr) return nullptr;
    const auto document = AskForInterface(*object.Get(), library->document);
    if (document == nullptr) return std::make_shared<ComObject<BridgeObject>>(library, object);
    return ComDocument::Make(library, document);
  }
};

class ComGroup : public ComObject<IBridgeGroup> {
 public:
  using ComObject::ComObject;
  std::shared_ptr<IBridgeDocuments> Documents() override {
    return CallFor<ComDocuments>(position::kGroupDocuments, "Documents");
  }
  void Close() override { Call(position::kGroupClose, "Close"); }
  void Arrange(std::int32_t style) override { Call(position::kGroupArrange, "Arrange", LONG{style}); }
};

class ComGroups : public ComObject<IBridgeGroups> {
 public:
  using ComObject::ComObject;
  std::shared_ptr<IBridgeGroup> Item(const TaggedValue& key) override {
    const ComValue value(key);
    return CallFor<ComGroup>(position::kGroupsItem, "Item", value.Get());
  }
  std::shared_ptr<BridgeObject> Add(std::string_view path) override {
    const auto library = TheLibrary();
    const ComText text(path);
    const auto object = CallForObject(position::kGroupsAdd, "Add", text.Get());
    if (object == nullptr) return nullptr;
    const auto group = AskForInterface(*object.Get(), library->group);
    if (group == nullptr) return std::make_shared<ComObject<BridgeObject>>(library, object);
    return std::make_shared<ComGroup>(library, group);
  }
};

class ComBridge : public ComObject<IBridge> {
 public:
  using ComObject::ComObject;
  std::shared_ptr<IBridgeGroups> Groups() override {
    return CallFor<ComGroups>(position::kBridgeGroups, "Groups");
  }
  std::int32_t QueryCapability(std::string_view mimeType, std::int32_t capability) override {
    const ComText type(mimeType);
    LONG able = 0;
    Call(position::kBridgeQueryCapability, "QueryCapability", type.Get(), LONG{capability}, &able);
    return able;
  }
};

}  // namespace

std::shared_ptr<IBridge> MakeComBridge() {
  EnterComApartment();
  const auto library = FindBridgeLibrary();
  if (library == nullptr) return nullptr;
  ComPtr<IUnknown> object;
  SetErrorInfo(0, nullptr);  // what is found there afterwards is of this call
  CheckCom(CoCreateInstance(library->bridgeClass, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                            library->bridge, Into(object)),
           "Document Bridge");
  if (object == nullptr) return nullptr;
  return std::make_shared<ComBridge>(library, std::move(object));
}

}  // namespace qb
