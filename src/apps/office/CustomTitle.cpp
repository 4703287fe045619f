#include "apps/office/CustomTitle.h"

#include <com/sun/star/beans/PropertyAttribute.hpp>
#include <com/sun/star/beans/XPropertyContainer.hpp>
#include <com/sun/star/document/XDocumentPropertiesSupplier.hpp>
#include <com/sun/star/util/XModifiable.hpp>

#include "apps/office/UnoText.h"

namespace qb::office {

namespace beans = com::sun::star::beans;
using Model = Reference<com::sun::star::frame::XModel>;

namespace {

Reference<beans::XPropertyContainer> CustomProperties(const Model& model) {
  return Reference<com::sun::star::document::XDocumentPropertiesSupplier>(model, UNO_QUERY_THROW)
      ->getDocumentProperties()
      ->getUserDefinedProperties();
}

}  // namespace

std::optional<std::string> CustomTitle(const Model& model) {
  const Reference<beans::XPropertySet> values(CustomProperties(model), UNO_QUERY_THROW);
  OUString title;
  if (!values->getPropertySetInfo()->hasPropertyByName("Title")) return std::nullopt;
  if (!(values->getPropertyValue("Title") >>= title)) return std::nullopt;
  return ToUtf8(title);
}

void SetCustomTitle(const Model& model, const std::string& title) {
  const Reference<com::sun::star::util::XModifiable> document(model, UNO_QUERY_THROW);
  const bool wasModified = document->isModified();
  const auto properties = CustomProperties(model);
  const Reference<beans::XPropertySet> values(properties, UNO_QUERY_THROW);
  // A property keeps its type, and this one may have been a number.
  if (values->getPropertySetInfo()->hasPropertyByName("Title")) properties->removeProperty("Title");
  properties->addProperty("Title", beans::PropertyAttribute::REMOVABLE, Any(ToUno(title)));
  if (!wasModified) document->setModified(false);
}

}  // namespace qb::office
