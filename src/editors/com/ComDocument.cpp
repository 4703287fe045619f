#include "editors/com/ComDocument.h"

#include <utility>

#include "platform/win32/ComCollection.h"
#include "platform/win32/ComFailure.h"
#include "platform/win32/ComValues.h"
#include "platform/win32/Win32AutomationObject.h"

namespace qb {
namespace {

class ComProperty : public ComObject<IBridgeProperty> {
 public:
  using ComObject::ComObject;
  TaggedValue Value() override {
    ComValue value;
    Call(position::kPropertyReadValue, "Value", value.Out());
    return value.Tagged();
  }
  void Value(const TaggedValue& newValue) override {
    const ComValue value(newValue);
    Call(position::kPropertyWriteValue, "Value", value.Get());
  }
};

class ComProperties : public ComObject<IBridgeProperties> {
 public:
  using ComObject::ComObject;
  std::shared_ptr<IBridgeProperty> Item(const TaggedValue& name) override {
    const ComValue key(name);
    return CallFor<ComProperty>(position::kPropertiesItem, "Item", key.Get());
  }
};

/// The object as one that is asked by name; nothing stays nothing.
ComPtr<IDispatch> AskableByName(const ComPtr<IUnknown>& object, std::string_view member) {
  ComPtr<IDispatch> askable;
  if (object != nullptr) CheckCom(object->QueryInterface(IID_IDispatch, &askable), member);
  return askable;
}

}  // namespace

std::shared_ptr<ComDocument> ComDocument::Make(const std::shared_ptr<const BridgeLibrary>& library,
                                               const ComPtr<IUnknown>& object) {
  const auto document = std::make_shared<ComDocument>(library, object);
  document->events_ = std::make_unique<DocumentEvents>(*library, *object.Get(), document);
  return document;
}

std::shared_ptr<AutomationObject> ComDocument::Application() {
  return MakeAutomationObject(
      AskableByName(CallForObject(position::kDocumentApplication, "Application"), "Application"));
}

std::shared_ptr<AutomationObject> ComDocument::HostDocument() {
  return MakeAutomationObject(
      AskableByName(CallForObject(position::kDocumentHostDocument, "HostDocument"), "HostDocument"));
}

std::shared_ptr<IBridgeProperties> ComDocument::CustomProperties() {
  return CallFor<ComProperties>(position::kDocumentCustomProperties, "CustomProperties");
}

std::shared_ptr<Collection<std::string>> ComDocument::Hyperlinks() {
  const auto list = AskableByName(CallForObject(position::kDocumentHyperlinks, "Hyperlinks"), "Hyperlinks");
  if (list == nullptr) return nullptr;
  auto texts = std::make_shared<Collection<std::string>>();
  for (const ComValue& element : ElementsOf(*list.Get())) texts->Add(TextOf(element.Tagged()));
  return texts;
}

}  // namespace qb
