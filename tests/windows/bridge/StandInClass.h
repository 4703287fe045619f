#pragma once

#include <string>

namespace qb {

/// Files of the stand-in: beside the test program.
std::wstring StandInFile(const wchar_t* name);

/// Tells the registry of the stand-in, as an installation does; each call replaces the one before.
/// `typeLibrary` is the file that is told for the type library, `library` the one for the class.
void RegisterStandIn(const std::wstring& typeLibrary, const std::wstring& library);
/// Tells it of a type library in one version and one system ("win64") only.
void RegisterTypeLibrary(const wchar_t* version, const wchar_t* system, const std::wstring& typeLibrary);
void UnregisterStandIn();

}  // namespace qb
