#pragma once

#include "apps/qbt/Findings.h"
#include "apps/qbt/PackageContents.h"

namespace qb {

/// Looks at everything that can be wrong with a package: the file itself, what it says, and the files beside
/// it. Nothing is written. The findings come in the order of their lines.
Findings CheckPackage(const PackageContents& contents);

// Its parts, each with one subject.

/// Lines that say nothing, doubled sections and keys, bytes that are not in the code page, the stated length.
void CheckText(const PackageContents& contents, Findings& findings);
/// The sections GLOBAL and TRANS, and the documents that are counted in them.
void CheckGlobals(const PackageContents& contents, Findings& findings);
/// Required keys, counts, roles, states and identities of documents and versions.
void CheckDocuments(const PackageContents& contents, Findings& findings);
/// Add-sections: properties and links.
void CheckLists(const PackageContents& contents, Findings& findings);
/// The files that are listed, and those that lie beside the package file.
void CheckFiles(const PackageContents& contents, Findings& findings);

}  // namespace qb
