#include "platform/win32/Win32AutomationObject.h"

#include <utility>

#include "platform/win32/ComCollection.h"
#include "platform/win32/ComFailure.h"
#include "platform/win32/ComInvoke.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

/// The object that a value is, or nothing. Raises 13 if it is something else.
std::shared_ptr<AutomationObject> ObjectIn(const ComValue& value) {
  const VARIANT& held = value.Get();
  if (held.vt == VT_EMPTY || held.vt == VT_NULL) return nullptr;
  if (held.vt != VT_DISPATCH && held.vt != VT_UNKNOWN) throw RuntimeError(failure::kTypeMismatch);
  if (held.punkVal == nullptr) return nullptr;
  ComPtr<IDispatch> object;
  CheckCom(held.punkVal->QueryInterface(IID_IDispatch, &object), "object");
  return MakeAutomationObject(std::move(object));
}

class Win32AutomationObject : public AutomationObject {
 public:
  explicit Win32AutomationObject(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  std::string TextProperty(std::string_view name) override { return TextOf(Read(name).Tagged()); }
  std::shared_ptr<AutomationObject> ObjectProperty(std::string_view name) override {
    return ObjectIn(Read(name));
  }
  std::vector<std::shared_ptr<AutomationObject>> Elements() override {
    std::vector<std::shared_ptr<AutomationObject>> elements;
    for (const ComValue& element : ElementsOf(*object_.Get())) elements.push_back(ObjectIn(element));
    return elements;
  }
  void Call(std::string_view name, const CallArguments& arguments) override {
    InvokeMember(*object_.Get(), MemberNumber(*object_.Get(), name), DISPATCH_METHOD, name, arguments);
  }

 private:
  ComValue Read(std::string_view name) {
    // A server may have declared as a method what reads as a property.
    constexpr WORD kRead = DISPATCH_PROPERTYGET | DISPATCH_METHOD;
    return InvokeMember(*object_.Get(), MemberNumber(*object_.Get(), name), kRead, name);
  }

  ComPtr<IDispatch> object_;
};

}  // namespace

std::shared_ptr<AutomationObject> MakeAutomationObject(ComPtr<IDispatch> object) {
  if (object == nullptr) return nullptr;
  return std::make_shared<Win32AutomationObject>(std::move(object));
}

}  // namespace qb
