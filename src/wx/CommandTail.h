#pragma once

#include <string>
#include <vector>

namespace qb {

/// The command tail that the arguments of a process make: they are joined by blanks and stand as they are,
/// quotes included, except that a relative path becomes absolute and gets the separators of the program.
/// Empty without arguments.
std::string CommandTail(const std::vector<std::string>& arguments);

/// The command tail of this process, whose `main` was called with these: on Windows as it was typed.
std::string ProcessCommandTail(int argc, char** argv);

}  // namespace qb
