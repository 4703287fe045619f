#pragma once

namespace qb {

/// For a TRADOS package: brings MultiTerm up with the package's terminology, and Translator's Workbench with
/// its translation memory. What does not work is reported, and the package opens all the same. Takes up to 20
/// seconds, in which events run. False if another package was opened in them: then that one stands, complete.
bool ConnectTradosTools();

}  // namespace qb
