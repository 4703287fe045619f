#pragma once

#include <string>

namespace qb {

/// The bytes of a fresh package file of `documents` documents: each with a target and a source version, each
/// version with two files and one property. No document has a state yet, so the first opening writes every
/// one. ASCII with CR LF, about 0.9 KB a document; the same for the same number.
std::string PackageBytes(int documents);

/// The key of the document with this number, counted from 1.
std::string DocumentKey(int document);

}  // namespace qb
