#include "apps/office/UnoStart.h"

#include <unistd.h>

#include <rtl/bootstrap.hxx>
#include <stdexcept>

#include "apps/office/UnoText.h"

namespace qb::office {

void PrepareUno() {
  const std::string types = QB_OFFICE_PROGRAM "/fundamentalrc";
  if (access(types.c_str(), R_OK) != 0) {
    throw std::runtime_error("LibreOffice is not installed: " + types + " is not there");
  }
  rtl::Bootstrap::set("URE_BOOTSTRAP", ToUno("vnd.sun.star.pathname:" + types));
}

}  // namespace qb::office
