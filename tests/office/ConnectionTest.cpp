#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <string>
#include <thread>

#include "apps/office/Happenings.h"
#include "apps/office/OfficeConnection.h"
#include "apps/office/OfficeProcess.h"
#include "apps/office/UnoStart.h"

namespace qb::office {
namespace {

/// A pipe of an office that takes every line and never says anything.
class SilentPipe {
 public:
  SilentPipe() : name_(NewPipeName()), listener_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/tmp/OSL_PIPE_" + std::to_string(getuid()) + '_' + name_;
    std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
    EXPECT_EQ(bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    EXPECT_EQ(listen(listener_, 100), 0);
  }
  SilentPipe(const SilentPipe&) = delete;
  SilentPipe& operator=(const SilentPipe&) = delete;
  ~SilentPipe() {
    close(listener_);
    RemovePipe(name_);
  }
  const std::string& Name() const { return name_; }

 private:
  std::string name_;
  int listener_;
};

TEST(ConnectionTest, canBeGivenUpAtAnyMomentOfItsMaking) {
  PrepareUno();
  const SilentPipe pipe;
  Happenings happenings;
  for (int moment = 0; moment < 60; ++moment) {
    const OfficeConnection connection(pipe.Name(), happenings);
    std::this_thread::sleep_for(std::chrono::microseconds(moment * 250));
  }
}

}  // namespace
}  // namespace qb::office
