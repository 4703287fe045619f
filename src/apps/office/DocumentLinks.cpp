#include "apps/office/DocumentLinks.h"

#include <com/sun/star/frame/XStorable.hpp>

#include "apps/office/UnoText.h"

namespace qb::office {

void StoreForLinks(const Reference<com::sun::star::frame::XModel>& model, const std::string& kind,
                   const std::string& copy) {
  std::string filter = "OpenDocument Text Flat XML";
  if (kind == "presentation") filter = "OpenDocument Presentation Flat XML";
  if (kind == "drawing") filter = "OpenDocument Drawing Flat XML";
  Reference<com::sun::star::frame::XStorable>(model, UNO_QUERY_THROW)
      ->storeToURL(FileUrl(copy), ToArguments({Named("FilterName", Any(ToUno(filter)))}));
}

}  // namespace qb::office
