#include "apps/qbt/PackageCheck.h"

namespace qb {

Findings CheckPackage(const PackageContents& contents) {
  Findings findings;
  CheckText(contents, findings);
  CheckGlobals(contents, findings);
  CheckDocuments(contents, findings);
  CheckLists(contents, findings);
  CheckFiles(contents, findings);
  findings.Sort();
  return findings;
}

}  // namespace qb
