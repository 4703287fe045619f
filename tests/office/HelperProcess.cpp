#include "office/HelperProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace qb::office {

using nlohmann::json;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr milliseconds kPatience{60000};
constexpr milliseconds kLook{20};

std::string ReadFile(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<pid_t> Children(pid_t process) {
  std::vector<pid_t> children;
  const std::string tasks = "/proc/" + std::to_string(process) + "/task";
  std::error_code ignored;
  for (const auto& task : std::filesystem::directory_iterator(tasks, ignored)) {
    std::istringstream numbers(ReadFile(task.path() / "children"));
    children.insert(children.end(), std::istream_iterator<pid_t>(numbers), {});
  }
  return children;
}

}  // namespace

HelperProcess::HelperProcess(const std::string& profile, const std::vector<std::string>& more) {
  // A helper may be gone when it is spoken to.
  signal(SIGPIPE, SIG_IGN);
  std::vector<std::string> texts = {QB_OFFICE_HELPER, "--profile", profile};
  texts.insert(texts.end(), more.begin(), more.end());
  std::vector<char*> arguments;
  for (std::string& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);
  std::array<int, 2> in{};
  std::array<int, 2> out{};
  if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0)
    throw std::runtime_error("pipe2");
  pid_ = fork();
  if (pid_ == 0) {
    dup2(in[0], STDIN_FILENO);
    dup2(out[1], STDOUT_FILENO);
    execv(arguments[0], arguments.data());
    _exit(127);
  }
  if (pid_ < 0) throw std::runtime_error("fork");
  close(in[0]);
  close(out[1]);
  input_ = in[1];
  output_ = out[0];
}

HelperProcess::~HelperProcess() {
  if (pid_ > 1) {
    for (const pid_t launcher : Children(pid_)) {
      for (const pid_t office : Children(launcher)) Signal(office, SIGKILL);
    }
    Signal(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  CloseInput();
  close(output_);
}

int HelperProcess::Send(const std::string& call, json arguments) {
  arguments["id"] = ++lastId_;
  arguments["call"] = call;
  SendLine(arguments.dump());
  return lastId_;
}

void HelperProcess::SendLine(const std::string& line) const {
  const std::string whole = line + '\n';
  const ssize_t count = write(input_, whole.data(), whole.size());
  // Who waits for an answer of one that has ended fails there.
  if (count != static_cast<ssize_t>(whole.size()) && errno != EPIPE) {
    ADD_FAILURE() << "The helper does not read " << line;
  }
}

json HelperProcess::Ask(const std::string& call, const json& arguments) {
  return WaitForAnswer(Send(call, arguments));
}

json HelperProcess::WaitForAnswer(int id) {
  for (const auto end = steady_clock::now() + kPatience; steady_clock::now() < end && !hasEnded_;
       ReadMore(kLook)) {
    for (auto line = lines_.begin(); line != lines_.end(); ++line) {
      if (line->value("id", 0) != id) continue;
      const json answer = *line;
      lines_.erase(line);
      return answer.contains("error") ? answer["error"] : answer.at("result");
    }
  }
  ADD_FAILURE() << "No answer to request " << id;
  return {};
}

json HelperProcess::WaitFor(const std::function<bool(const json&)>& isIt) {
  for (const auto end = steady_clock::now() + kPatience; steady_clock::now() < end; ReadMore(kLook)) {
    for (auto line = lines_.begin(); line != lines_.end(); ++line) {
      if (!isIt(*line)) continue;
      const json found = *line;
      lines_.erase(lines_.begin(), line + 1);
      return found;
    }
    if (hasEnded_) break;
  }
  ADD_FAILURE() << "The helper has not said what the test waits for";
  return {};
}

json HelperProcess::WaitForEvent(const std::string& event) {
  SCOPED_TRACE(event);
  return WaitFor([&event](const json& line) { return line.value("event", "") == event; });
}

std::vector<json> HelperProcess::Waiting() {
  while (ReadMore(milliseconds(0))) continue;
  return lines_;
}

void HelperProcess::Forget() {
  Waiting();
  lines_.clear();
}

std::vector<json> HelperProcess::ReadToEnd() {
  for (const auto end = steady_clock::now() + kPatience; steady_clock::now() < end && !hasEnded_;)
    ReadMore(kLook);
  if (!hasEnded_) ADD_FAILURE() << "The helper has not ended";
  return std::exchange(lines_, {});
}

void HelperProcess::CloseInput() {
  if (input_ >= 0) close(std::exchange(input_, -1));
}

int HelperProcess::WaitForEnd() {
  int status = -1;
  if (!WaitUntil([this, &status] { return waitpid(pid_, &status, WNOHANG) == pid_; })) {
    ADD_FAILURE() << "The helper has not ended";
    return -1;
  }
  pid_ = -1;
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

pid_t HelperProcess::OfficePid() const {
  pid_t office = -1;
  const bool found = WaitUntil([this, &office] {
    for (const pid_t launcher : Children(pid_)) {
      for (const pid_t child : Children(launcher)) {
        if (ReadFile("/proc/" + std::to_string(child) + "/comm") == "soffice.bin\n") office = child;
      }
    }
    return office > 1;
  });
  if (!found) ADD_FAILURE() << "There is no office";
  return office;
}

std::string HelperProcess::Pipe() const {
  const std::string line = ReadFile("/proc/" + std::to_string(OfficePid()) + "/cmdline");
  const std::string mark = "pipe,name=";
  const std::size_t begin = line.find(mark) + mark.size();
  return line.substr(begin, line.find(';', begin) - begin);
}

bool HelperProcess::ReadMore(milliseconds patience) {
  pollfd waited{output_, POLLIN, 0};
  if (hasEnded_ || poll(&waited, 1, static_cast<int>(patience.count())) <= 0) return false;
  std::array<char, 65536> buffer{};
  const ssize_t count = read(output_, buffer.data(), buffer.size());
  hasEnded_ = count <= 0;
  if (hasEnded_) return false;
  bytes_.append(buffer.data(), static_cast<std::size_t>(count));
  for (std::size_t end = 0; (end = bytes_.find('\n')) != std::string::npos; bytes_.erase(0, end + 1)) {
    lines_.push_back(json::parse(bytes_.substr(0, end)));
  }
  return true;
}

bool WaitUntil(const std::function<bool()>& isSo) {
  for (const auto end = steady_clock::now() + kPatience; steady_clock::now() < end;) {
    if (isSo()) return true;
    poll(nullptr, 0, static_cast<int>(kLook.count()));
  }
  return false;
}

void Signal(pid_t process, int signal) {
  // Anything else than one process's number would reach many.
  if (process > 1) kill(process, signal);
}

bool WaitUntilGone(pid_t process) {
  return WaitUntil([process] { return process <= 1 || kill(process, 0) != 0; });
}

}  // namespace qb::office
