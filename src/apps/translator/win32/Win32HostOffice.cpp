#include "apps/translator/HostOffice.h"
#include "editors/EditorQuestions.h"
#include "editors/com/ComBridge.h"

namespace qb {

void InstallHostOffice() {
  gEditorQuestions.newDocumentBridge = MakeComBridge;
}

}  // namespace qb
