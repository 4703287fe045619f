#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace qb::office {

/// A thread that does what it is given, one after the other.
class WorkThread {
 public:
  WorkThread();
  WorkThread(const WorkThread&) = delete;
  WorkThread& operator=(const WorkThread&) = delete;
  /// Waits for what is being done; what waits is dropped.
  ~WorkThread();

  /// Does not wait. `work` throws nothing.
  void Post(std::function<void()> work);

 private:
  void Run();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> waiting_;
  bool ended_ = false;
  std::thread thread_;
};

}  // namespace qb::office
