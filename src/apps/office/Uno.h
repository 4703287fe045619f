#pragma once

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/Sequence.hxx>
#include <rtl/ustring.hxx>
#include <vector>

namespace qb::office {

using rtl::OUString;

namespace uno = com::sun::star::uno;
using uno::Any;
using uno::Reference;
using uno::UNO_QUERY;
using uno::UNO_QUERY_THROW;

inline com::sun::star::beans::PropertyValue Named(const char* name, const Any& value) {
  com::sun::star::beans::PropertyValue property;
  property.Name = OUString::createFromAscii(name);
  property.Value = value;
  return property;
}

using Arguments = uno::Sequence<com::sun::star::beans::PropertyValue>;

inline Arguments ToArguments(const std::vector<com::sun::star::beans::PropertyValue>& values) {
  return {values.data(), static_cast<sal_Int32>(values.size())};
}

/// The value of that name in a row of them; an empty one if there is none.
inline Any ValueOf(const Arguments& values, const char* name) {
  for (const auto& value : values) {
    if (value.Name.equalsAscii(name)) return value.Value;
  }
  return {};
}

inline bool Supports(const Reference<uno::XInterface>& object, const char* service) {
  const Reference<com::sun::star::lang::XServiceInfo> info(object, UNO_QUERY);
  return info.is() && info->supportsService(OUString::createFromAscii(service));
}

}  // namespace qb::office
