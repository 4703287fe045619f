#include "platform/win32/Win32Automation.h"

#include <optional>
#include <utility>

#include "platform/win32/ComApartment.h"
#include "platform/win32/ComHeaders.h"
#include "platform/win32/ComPatience.h"
#include "platform/win32/Win32AutomationObject.h"
#include "platform/win32/Win32Text.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

/// The identifier of a class that the machine knows.
std::optional<CLSID> ClassOf(std::string_view className) {
  EnterComApartment();
  CLSID identifier{};
  if (FAILED(CLSIDFromProgID(Wide(className).c_str(), &identifier))) return std::nullopt;
  return identifier;
}

}  // namespace

std::shared_ptr<AutomationObject> Win32Automation::ActiveObject(std::string_view className) {
  const std::optional<CLSID> identifier = ClassOf(className);
  ComPtr<IUnknown> running;
  if (!identifier || FAILED(GetActiveObject(*identifier, nullptr, &running))) return nullptr;
  ComPtr<IDispatch> object;
  if (FAILED(CallPatiently([&] { return running->QueryInterface(IID_IDispatch, &object); }))) return nullptr;
  return MakeAutomationObject(std::move(object));
}

std::shared_ptr<AutomationObject> Win32Automation::NewObject(std::string_view className) {
  const std::optional<CLSID> identifier = ClassOf(className);
  ComPtr<IDispatch> object;
  if (!identifier || FAILED(CoCreateInstance(*identifier, nullptr, CLSCTX_SERVER, IID_IDispatch, &object))) {
    RaiseAbout(failure::kCannotCreateObject, className);
  }
  return MakeAutomationObject(std::move(object));
}

}  // namespace qb
