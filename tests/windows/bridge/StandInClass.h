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

/// Registers the stand-in as a program of its own instead, started by the system when it is needed, with all
/// that lets calls pass between processes.
void RegisterStandInProgram();
/// The whole of that program: an office whose user saves `\pkg\dst\text.doc` while its group is arranged, and
/// once more a moment after the capability 1 of "later" was asked for. Ends when nobody uses it any more.
int RunStandInProgram();

}  // namespace qb
