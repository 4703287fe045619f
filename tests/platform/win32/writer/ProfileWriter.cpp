#include <cstdlib>
#include <iostream>
#include <string>

#include "platform/CachedProfileFiles.h"
#include "platform/win32/Win32FileSystem.h"
#include "platform/win32/Win32TextCodec.h"

// profile_writer <root> <name> <rounds>  Another process that writes into \Trans.pxf: in each round a batch
// of five keys and one more key, all called by the name and a number. Fails if a write was refused.
int main(int argc, char** argv) {
  if (argc != 4) return 2;
  qb::Win32FileSystem files(argv[1]);
  qb::Win32TextCodec codec;
  qb::CachedProfileFiles profiles(files, codec, [](const qb::ProfileImage&) { return 1252U; });
  const std::string path = R"(\Trans.pxf)";
  bool good = true;
  int number = 0;
  const auto write = [&] {
    good = profiles.WritePrivateProfileString("A", argv[2] + std::to_string(number++), "v", path) && good;
  };
  for (int round = std::atoi(argv[3]); round > 0; --round) {
    {
      qb::ProfileBatch batch(profiles, path);
      for (int i = 0; i < 5; ++i) write();
      good = batch.End() && good;
    }
    write();
  }
  if (!good) std::cerr << profiles.LastRefusal() << '\n';
  return good ? 0 : 1;
}
