#include "apps/translator/HostOffice.h"
#include "editors/libreoffice/OfficeBridge.h"

namespace qb {

void InstallHostOffice() {
  InstallOfficeBridge();
}

}  // namespace qb
