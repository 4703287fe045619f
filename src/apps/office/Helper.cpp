#include "apps/office/Helper.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "apps/office/Failure.h"
#include "apps/office/Happenings.h"
#include "apps/office/Lines.h"
#include "apps/office/OfficeConnection.h"
#include "apps/office/OfficeProcess.h"
#include "apps/office/ProfileLocks.h"
#include "apps/office/ProfileSettings.h"
#include "apps/office/Service.h"
#include "apps/office/UnoStart.h"

namespace qb::office {

using nlohmann::json;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr milliseconds kStart{60000};
constexpr milliseconds kEnd{10000};
constexpr milliseconds kLook{50};
/// How often an office without a program is asked whether it still has documents.
constexpr milliseconds kBetweenLooks{500};

/// An office and the line to it.
class RunningOffice {
 public:
  /// Returns when the office answers; raises std::exception if it does not.
  RunningOffice(const Places& places, Happenings& happenings)
      : lock_(OfficeLock(places.profile)),
        process_(places.office, places.profile, pipe_),
        line_(pipe_, happenings) {
    const auto end = steady_clock::now() + kStart;
    while (!line_.WaitUntilUp(kLook)) {
      // Status 0 says that an office with this profile runs already, and has been told where to listen.
      if (process_.HasEnded() && process_.Status() != 0) {
        throw std::runtime_error("LibreOffice ended with " + std::to_string(process_.Status()) +
                                 " at its start");
      }
      if (steady_clock::now() > end) {
        process_.Kill();
        throw std::runtime_error("LibreOffice did not start");
      }
    }
  }
  ~RunningOffice() { RemovePipe(pipe_); }

  OfficeConnection& Line() { return line_; }

  /// Waits until the process is gone, so that the next start finds the profile free.
  void WaitForEnd() {
    for (const auto end = steady_clock::now() + kEnd; !process_.HasEnded() && steady_clock::now() < end;) {
      poll(nullptr, 0, static_cast<int>(kLook.count()));
    }
  }

 private:
  const std::string pipe_ = NewPipeName();
  Descriptor lock_;
  OfficeProcess process_;
  OfficeConnection line_;
};

class RequestLoop {
 public:
  RequestLoop(RunningOffice& office, Happenings& happenings, const Places& places, milliseconds patience)
      : office_(office),
        happenings_(happenings),
        service_(office.Line(), happenings, places.profile, patience) {}

  void Run() {
    while (!office_.Line().IsLost() && !isDone_) {
      // What is open when the program has died is still the user's.
      if (isAlone_ && !HasDocuments()) break;
      Wait();
      service_.TellHappenings();
      service_.CloseUnwanted();
      service_.CloseStartCenter();
      while (!office_.Line().IsLost() && !isDone_) {
        const auto line = input_.Next();
        if (!line) break;
        Answer(*line);
      }
    }
    service_.TellEnd();
  }

 private:
  void Wait() {
    std::array<pollfd, 2> waited{
        {{happenings_.Descriptor(), POLLIN, 0}, {isAlone_ ? -1 : STDIN_FILENO, POLLIN, 0}}};
    poll(waited.data(), waited.size(), isAlone_ ? static_cast<int>(kBetweenLooks.count()) : -1);
    if (waited[1].revents != 0) isAlone_ = !input_.Read();
  }

  void Answer(const std::string& line) {
    json id;
    try {
      const json request = json::parse(line);
      if (!request.is_object()) throw Failure("request", "A request is an object");
      id = request.value("id", json());
      const std::string call = request.at("call");
      const json result = service_.Work(call, request);
      isDone_ = call == "quit";
      service_.TellHappenings();
      WriteLine({{"id", id}, {"result", result}});
    } catch (const Failure& failure) {
      Refuse(id, failure.Code(), failure.what());
    } catch (const json::exception& failure) {
      Refuse(id, "request", failure.what());
    } catch (const std::exception& failure) {
      // Whatever one request needs too much of, the other documents stay.
      Refuse(id, "office", failure.what());
    }
  }

  void Refuse(const json& id, const std::string& code, const std::string& text) {
    service_.TellHappenings();
    WriteLine({{"id", id}, {"error", {{"code", code}, {"text", text}}}});
  }

  bool HasDocuments() {
    try {
      if (service_.HasDocuments()) return true;
      service_.EndOffice();
      return false;
    } catch (const Failure& failure) {
      std::fprintf(stderr, "%s\n", failure.what());
      return true;
    }
  }

  RunningOffice& office_;
  Happenings& happenings_;
  Service service_;
  LineReader input_{STDIN_FILENO};
  bool isAlone_ = false;
  bool isDone_ = false;
};

}  // namespace

int RunHelper(const Places& places, milliseconds patience) {
  Happenings happenings;
  try {
    if (access(places.office.c_str(), X_OK) != 0) {
      throw std::runtime_error("LibreOffice is not installed: " + places.office + " is not there");
    }
    PrepareUno();
    WriteProfileSettings(places.profile);
    RunningOffice office(places, happenings);
    WriteLine({{"event", "ready"}});
    RequestLoop(office, happenings, places, patience).Run();
    // Before the wait: the program does not ask this office for anything any more.
    WriteLine({{"event", "ended"}});
    office.WaitForEnd();
    return EXIT_SUCCESS;
  } catch (const std::exception& failure) {
    WriteLine({{"event", "failed"}, {"text", failure.what()}});
    return EXIT_FAILURE;
  }
}

}  // namespace qb::office
