#include <glib.h>
#include <unistd.h>

#include <clocale>
#include <csignal>

#include "apps/qbt/HostTerminal.h"

namespace qb {

const std::array<int, 3> kEndingSignals{SIGINT, SIGTERM, SIGHUP};

std::vector<std::string> PrepareTerminal(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  return {argv + 1, argv + argc};
}

bool ErrorsGoToTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

bool InputComesFromTerminal() {
  return isatty(STDIN_FILENO) == 1;
}

int ColumnsOfCharacter(char32_t character) {
  if (g_unichar_iszerowidth(character) != FALSE) return 0;
  return g_unichar_iswide(character) != FALSE ? 2 : 1;
}

}  // namespace qb
