#pragma once

#include <com/sun/star/task/XInteractionHandler2.hpp>
#include <cppuhelper/implbase1.hxx>
#include <mutex>
#include <optional>
#include <rtl/ref.hxx>
#include <string>
#include <vector>

#include "apps/office/Failure.h"
#include "apps/office/Uno.h"

namespace qb::office {

/// Stands where a dialog of the office would stand while a document is loaded or stored for us: nobody would
/// look for one. Every question is declined and remembered.
class Questions : public cppu::WeakImplHelper1<com::sun::star::task::XInteractionHandler2> {
 public:
  sal_Bool SAL_CALL handleInteractionRequest(
      const com::sun::star::uno::Reference<com::sun::star::task::XInteractionRequest>& request) override;
  void SAL_CALL
  handle(const com::sun::star::uno::Reference<com::sun::star::task::XInteractionRequest>& request) override;

  /// What the questions tell about a document that could not be loaded; nothing if none was asked that tells
  /// it.
  std::optional<Failure> WhyNot(const std::string& path) const;

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> asked_;
};

/// The same as the office takes it in its arguments.
Any HandlerOf(const rtl::Reference<Questions>& questions);

}  // namespace qb::office
