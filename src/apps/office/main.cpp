#include <getopt.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#include "apps/office/Helper.h"
#include "apps/office/ProfileLocks.h"

namespace {

constexpr int kUsage = 2;
constexpr int kTaken = 3;

struct CommandLine {
  qb::office::Places places;
  std::chrono::seconds patience{60};
};

bool ReadCommandLine(int argc, char** argv, CommandLine& line) {
  const option options[] = {{"profile", required_argument, nullptr, 'p'},
                            {"office", required_argument, nullptr, 'o'},
                            {"patience", required_argument, nullptr, 's'},
                            {nullptr, 0, nullptr, 0}};
  for (int found = 0; (found = getopt_long(argc, argv, "", options, nullptr)) != -1;) {
    if (found == 'p') line.places.profile = optarg;
    if (found == 'o') line.places.office = optarg;
    if (found == 's') line.patience = std::chrono::seconds(std::atoi(optarg));
    if (found == '?') return false;
  }
  return optind == argc && !line.places.profile.empty() && line.patience.count() > 0;
}

}  // namespace

int main(int argc, char** argv) {
  CommandLine line;
  if (!ReadCommandLine(argc, argv, line)) {
    std::fputs("usage: quillbank-office --profile <folder> [--office <soffice>] [--patience <seconds>]\n",
               stderr);
    return kUsage;
  }
  // What ends the program from a terminal or at a logout reaches us as well. The program still closes its
  // documents then, and we end with our input.
  for (const int end : {SIGPIPE, SIGINT, SIGHUP, SIGTERM}) signal(end, SIG_IGN);
  try {
    const auto lock = qb::office::LockProfile(line.places.profile);
    if (!lock) {
      std::fputs("Another helper works with this profile\n", stderr);
      return kTaken;
    }
    return qb::office::RunHelper(line.places, line.patience);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
  }
}
