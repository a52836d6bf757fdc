#include "adapters/odbc/Waiting.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

#include "adapters/odbc/SilenceWatch.h"

namespace quorvane::odbc {
namespace {

constexpr std::chrono::milliseconds kMoment{300};
constexpr std::chrono::milliseconds kBetween{40};

using Meanwhile = std::function<bool()>;

std::shared_ptr<const Meanwhile>& Current() {
  static std::shared_ptr<const Meanwhile> meanwhile;
  return meanwhile;
}

/// A thread that does one piece of work after the other: to begin a thread for each takes longer
/// than most of them, and on a busy machine ten times as long.
class Helper {
 public:
  static Helper& Instance() {
    // A program may end in the middle of a call that nobody can cut short: it waits for none.
    static auto* const helper = new Helper;
    return *helper;
  }

  Helper() {
    std::thread([this] { Work(); }).detach();
  }
  ~Helper() = delete;
  Helper(const Helper&) = delete;
  Helper& operator=(const Helper&) = delete;
  Helper(Helper&&) = delete;
  Helper& operator=(Helper&&) = delete;

  void Do(const std::function<void()>& work, const Meanwhile& meanwhile) {
    // What is done meanwhile may have work of its own after all.
    if (busy_.exchange(true)) return work();
    std::unique_lock lock(mutex_);
    work_ = &work;
    lock.unlock();
    given_.notify_one();
    lock.lock();
    for (auto rest = kMoment; !done_.wait_for(lock, rest, [this] { return work_ == nullptr; });
         rest = kBetween) {
      lock.unlock();
      if (meanwhile()) SilenceWatch::Hurry();
      lock.lock();
    }
    const auto failure = std::exchange(failure_, nullptr);
    lock.unlock();
    busy_ = false;
    if (failure != nullptr) std::rethrow_exception(failure);
  }

 private:
  void Work() {
    std::unique_lock lock(mutex_);
    for (;;) {
      given_.wait(lock, [this] { return work_ != nullptr; });
      lock.unlock();
      std::exception_ptr failure;
      try {
        (*work_)();
      } catch (...) {
        failure = std::current_exception();
      }
      lock.lock();
      failure_ = std::move(failure);
      work_ = nullptr;
      lock.unlock();
      done_.notify_one();
      lock.lock();
    }
  }

  std::atomic<bool> busy_ = false;
  std::mutex mutex_;
  std::condition_variable given_, done_;
  const std::function<void()>* work_ = nullptr;
  std::exception_ptr failure_;
};

}  // namespace

void WhileWaiting(std::function<bool()> meanwhile) {
  Current() = meanwhile ? std::make_shared<const Meanwhile>(std::move(meanwhile)) : nullptr;
}

void Wait(const std::function<void()>& work) {
  const auto meanwhile = Current();
  if (meanwhile == nullptr) return work();
  Helper::Instance().Do(work, *meanwhile);
}

}  // namespace quorvane::odbc
