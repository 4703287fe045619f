// Stands in for the office helper: plays a script on its standard output and answers what it reads.
//
// The folder in QB_FAKE_OFFICE holds the scripts: each start takes away the file "start-<n>" of the least n;
// without one it serves. What it reads goes to the file "requests" of that folder, each start with its
// arguments to "starts".
//
// A line of a script is one of
//   {...}        written as it is, $id being the number of the request that was read last; those that follow
//                each other arrive together
//   part <text>  written without a line end, which "end" writes
//   flood <n>    writes so many bytes without a line end
//   big <n>      answers the last request with a title of so many letters
//   on <call>    reads requests up to one of this name, without answering the others
//   serve [<n>]  answers so many requests as an office would; without a number all of them
//   until <call> the same up to one of this name
//   await <name> waits until the folder holds this file
//   sleep <ms>, exit <status>, kill
// Behind the script the input is read to its end.

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;

void Put(const std::string& text) {
  std::cout << text << std::flush;
}

class FakeOffice {
 public:
  explicit FakeOffice(fs::path folder) : folder_(std::move(folder)) {}

  /// A start that is noted has its script: it may be ended, and the next one takes the next script.
  void Play(const std::string& arguments) {
    fs::path script;
    for (const auto& entry : fs::directory_iterator(folder_)) {
      const bool isScript = entry.path().filename().string().starts_with("start-");
      if (isScript && (script.empty() || entry.path() < script)) script = entry.path();
    }
    std::vector<std::string> lines;
    if (!script.empty()) {
      std::ifstream stream(script);
      for (std::string line; std::getline(stream, line);) lines.push_back(line);
      fs::remove(script);
    }
    Append("starts", arguments);
    if (script.empty()) {
      Put("{\"event\":\"ready\"}\n");
      Serve(-1);
    } else {
      std::string said;
      for (const std::string& line : lines) {
        if (line.starts_with("{")) {
          said += WithId(line) + "\n";
        } else {
          Put(std::exchange(said, {}));
          Do(line);
        }
      }
      Put(said);
    }
    while (Read()) {
    }
  }

 private:
  void Append(const std::string& name, const std::string& line) {
    std::ofstream(folder_ / name, std::ios::app) << line << "\n" << std::flush;
  }

  bool Read() {
    std::string line;
    if (!std::getline(std::cin, line)) return false;
    Append("requests", line);
    request_ = Json::parse(line);
    return true;
  }

  void Do(const std::string& line) {
    std::istringstream words(line);
    std::string word;
    std::string argument;
    words >> word >> argument;
    if (word == "part") Put(line.substr(5));
    if (word == "end") Put("\n");
    if (word == "flood") Put(std::string(std::stoul(argument), 'x'));
    if (word == "big") Answer({{"title", std::string(std::stoul(argument), 'x')}});
    if (word == "on") {
      while (Read() && request_["call"] != argument) {
      }
    }
    if (word == "serve") Serve(argument.empty() ? -1 : std::stoi(argument));
    if (word == "until") {
      do Serve(1);
      while (request_["call"] != argument);
    }
    if (word == "await") {
      while (!fs::exists(folder_ / argument)) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    if (word == "sleep") std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(argument)));
    if (word == "exit") std::_Exit(std::stoi(argument));
    if (word == "kill") kill(getpid(), SIGKILL);
  }

  std::string WithId(std::string line) const {
    const std::size_t place = line.find("$id");
    if (place != std::string::npos) line.replace(place, 3, request_["id"].dump());
    return line;
  }

  void Answer(const Json& result) { Put(Json{{"id", request_["id"]}, {"result", result}}.dump() + "\n"); }

  void Serve(int count) {
    while (count-- != 0 && Read()) {
      const std::string call = request_["call"];
      if (call == "open") {
        const std::string path = request_["path"];
        const bool slides = path.ends_with(".ppt");
        Answer({{"document", ++documents_}, {"kind", slides ? "presentation" : "text"}});
      } else if (call == "close") {
        for (const Json& document : request_["documents"]) {
          Put(Json{{"event", "closed"}, {"document", document}}.dump() + "\n");
        }
        Answer(Json::object());
      } else if (call == "title") {
        Answer({{"title", nullptr}});
      } else if (call == "links") {
        Answer({{"links", Json::array()}});
      } else {
        Answer(Json::object());
      }
      if (call == "quit") std::_Exit(0);
    }
  }

  fs::path folder_;
  Json request_;
  int documents_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
  FakeOffice office(std::getenv("QB_FAKE_OFFICE"));
  std::string line;
  for (int i = 1; i < count; ++i) line += std::string(i > 1 ? " " : "") + arguments[i];
  office.Play(line);
}
