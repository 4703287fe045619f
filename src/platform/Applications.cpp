#include "platform/Applications.h"

#include "runtime/RuntimeError.h"

namespace qb {

std::shared_ptr<AutomationObject> AutomationObject::ObjectProperty(std::string_view name) {
  RaiseAbout(failure::kNoSuchMember, name);
}

std::vector<std::shared_ptr<AutomationObject>> AutomationObject::Elements() {
  throw RuntimeError(failure::kNoSuchMember);
}

void AutomationObject::Call(std::string_view name, const CallArguments&) {
  RaiseAbout(failure::kNoSuchMember, name);
}

}  // namespace qb
