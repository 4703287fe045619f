#include "windows/bridge/StandInBridgeObjects.h"

#include "windows/bridge/StandInDocument.h"

namespace qb {

StandInState theStandIn;

HRESULT Refuse(const RuntimeError& error) {
  ComPtr<ICreateErrorInfo> described;
  ComPtr<IErrorInfo> info;
  CreateErrorInfo(described.GetAddressOf());
  described->SetSource(ComText(error.Source()).Get());
  described->SetDescription(ComText(error.Description()).Get());
  described->QueryInterface(IID_IErrorInfo, &info);
  SetErrorInfo(0, info.Get());
  return ResultOf(error.Number());
}

HRESULT StandInDocuments::get_Size(long* size) {
  return Answer([&] { *size = Script().Count(); });
}

HRESULT StandInDocuments::Load(BSTR path, long mode, IDispatch** paper) {
  return Answer([&] {
    *paper = nullptr;
    const auto opened = Script().Open(ComText::TextOf(path), mode);
    if (const auto document = std::dynamic_pointer_cast<IBridgeDocument>(opened)) {
      Give<StandInDocument>(document, paper);
    } else {
      Give<StandInForeignObject>(opened, paper);
    }
  });
}

HRESULT StandInGroup::get_Papers(IStandInDocuments** papers) {
  return Answer([&] { Give<StandInDocuments>(Script().Documents(), papers); });
}

HRESULT StandInGroup::Shut() {
  return Answer([&] { Script().Close(); });
}

HRESULT StandInGroup::Tile(long style) {
  return Answer([&] { Script().Arrange(style); });
}

HRESULT StandInGroups::Find(VARIANT key, IStandInGroup** set) {
  return Answer([&] { Give<StandInGroup>(Script().Item(ComValue::TaggedOf(key)), set); });
}

HRESULT StandInGroups::Make(BSTR path, IDispatch** set) {
  return Answer([&] {
    *set = nullptr;
    const auto made = Script().Add(ComText::TextOf(path));
    if (const auto group = std::dynamic_pointer_cast<IBridgeGroup>(made)) {
      Give<StandInGroup>(group, set);
    } else {
      Give<StandInForeignObject>(made, set);
    }
  });
}

HRESULT StandInBridge::get_Sets(IStandInGroups** sets) {
  return Answer([&] { Give<StandInGroups>(Script().Groups(), sets); });
}

HRESULT StandInBridge::CanDo(BSTR type, long ability, long* able) {
  return Answer([&] { *able = Script().QueryCapability(ComText::TextOf(type), ability); });
}

HRESULT StandInProperty::get_Content(VARIANT* content) {
  return Answer([&] {
    const TaggedValue value = Script().Value();
    VariantInit(content);
    if (const auto other = theStandIn.contents.find(name_); other != theStandIn.contents.end()) {
      *content = other->second;  // as it is, valid or not
    } else {
      VariantCopy(content, ComValue(value).Out());
    }
  });
}

HRESULT StandInProperty::put_Content(VARIANT content) {
  return Answer([&] { Script().Value(ComValue::TaggedOf(content)); });
}

HRESULT StandInProperties::Find(VARIANT name, IStandInProperty** note) {
  return Answer([&] {
    *note = nullptr;
    const TaggedValue key = ComValue::TaggedOf(name);
    const auto property = Script().Item(key);
    if (property == nullptr) return;
    *note = new StandInProperty(property, TextOf(key));
    (*note)->AddRef();
  });
}

}  // namespace qb
