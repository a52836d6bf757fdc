#pragma once

#include <atomic>
#include <cerrno>
#include <new>
#include <sys/mman.h>
#include <system_error>

namespace quorvane::test {

/// How often what is done wrong on purpose has been done, by any of the processes that are begun
/// once it is there.
class FaultCount {
 public:
  /// std::system_error when there is no memory to share.
  FaultCount() {
    auto* const memory =
        mmap(nullptr, sizeof *count_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
    count_ = new (memory) std::atomic<int>(0);
  }
  ~FaultCount() { munmap(count_, sizeof *count_); }
  FaultCount(FaultCount&&) = delete;

  void Add() { ++*count_; }
  /// Often enough to be found.
  [[nodiscard]] bool IsEnough() const { return *count_ >= kEnough; }

 private:
  static constexpr int kEnough = 3;
  static_assert(std::atomic<int>::is_always_lock_free);

  std::atomic<int>* count_;
};

}  // namespace quorvane::test
