#pragma once

#include <string>
#ifdef __WXMSW__
#include <string_view>
#else
#include <vector>
#endif

namespace qb {

#ifdef __WXMSW__
/// The command tail in the command line of a process: what stands behind the program's name, as it was typed,
/// except that a relative path without quotes becomes absolute. Empty without one.
std::string CommandTail(std::wstring_view line);
#else
/// The command tail that the arguments of a process make: they are joined by blanks and stand as they are,
/// quotes included, except that a relative path becomes absolute and gets the separators of the program.
/// Empty without arguments.
std::string CommandTail(const std::vector<std::string>& arguments);
#endif

/// The command tail of this process, whose `main` was called with these.
std::string ProcessCommandTail(int argc, char** argv);

}  // namespace qb
