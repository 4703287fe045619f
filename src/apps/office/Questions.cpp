#include "apps/office/Questions.h"

#include <com/sun/star/task/XInteractionAbort.hpp>
#include <com/sun/star/task/XInteractionApprove.hpp>
#include <com/sun/star/task/XInteractionDisapprove.hpp>

#include "apps/office/Uno.h"
#include "apps/office/UnoText.h"

namespace qb::office {

namespace task = com::sun::star::task;

namespace {

/// Takes the first way out of that kind; false if the question offers none.
template <class Continuation>
bool Choose(const uno::Sequence<Reference<task::XInteractionContinuation>>& ways) {
  for (const auto& way : ways) {
    const Reference<Continuation> chosen(way, UNO_QUERY);
    if (!chosen.is()) continue;
    chosen->select();
    return true;
  }
  return false;
}

}  // namespace

sal_Bool Questions::handleInteractionRequest(const Reference<task::XInteractionRequest>& request) {
  {
    const std::string name = ToUtf8(request->getRequest().getValueTypeName());
    const std::lock_guard lock(mutex_);
    asked_.push_back(name);
  }
  const auto ways = request->getContinuations();
  return Choose<task::XInteractionAbort>(ways) || Choose<task::XInteractionDisapprove>(ways) ||
         Choose<task::XInteractionApprove>(ways);
}

void Questions::handle(const Reference<task::XInteractionRequest>& request) {
  handleInteractionRequest(request);
}

std::optional<Failure> Questions::WhyNot(const std::string& path) const {
  const std::lock_guard lock(mutex_);
  for (const std::string& name : asked_) {
    if (name.find("Password") != std::string::npos) return Failure("encrypted", path + " is encrypted");
    if (name.find("Lock") != std::string::npos) return Failure("locked", path + " is open in another office");
    if (name.find("BrokenPackage") != std::string::npos) return Failure("damaged", path + " is damaged");
  }
  return std::nullopt;
}

Any HandlerOf(const rtl::Reference<Questions>& questions) {
  return Any(Reference<task::XInteractionHandler>(static_cast<task::XInteractionHandler2*>(questions.get())));
}

}  // namespace qb::office
