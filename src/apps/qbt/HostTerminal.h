#pragma once

#include <array>
#include <string>
#include <vector>

namespace qb {

/// The process's arguments in UTF-8, without the program's name. Makes the terminal ready to show UTF-8.
std::vector<std::string> PrepareTerminal(int argc, char** argv);

/// Whether a person reads what the process writes, and gives the answers that it reads.
bool ErrorsGoToTerminal();
bool InputComesFromTerminal();

/// How many columns of a terminal a character takes: 0, 1 or 2.
int ColumnsOfCharacter(char32_t character);

/// The signals by which a terminal interrupts a process or goes away under it.
extern const std::array<int, 3> kEndingSignals;

}  // namespace qb
