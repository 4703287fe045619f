#include "apps/office/WorkThread.h"

#include <utility>

namespace qb::office {

WorkThread::WorkThread() : thread_([this] { Run(); }) {
}

WorkThread::~WorkThread() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void WorkThread::Post(std::function<void()> work) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(std::move(work));
  }
  changed_.notify_one();
}

void WorkThread::Run() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return ended_ || !waiting_.empty(); });
    if (ended_) return;
    const std::function<void()> work = std::move(waiting_.front());
    waiting_.pop_front();
    lock.unlock();
    work();
    lock.lock();
  }
}

}  // namespace qb::office
