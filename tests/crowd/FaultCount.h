#pragma once

#include <atomic>

namespace quorvane::test {

/// How often what is done wrong on purpose has been done, by any of the processes that are begun
/// once it is there.
class FaultCount {
 public:
  /// std::system_error when there is no memory to share.
  FaultCount();
  ~FaultCount();
  FaultCount(const FaultCount&) = delete;
  FaultCount& operator=(const FaultCount&) = delete;
  FaultCount(FaultCount&&) = delete;
  FaultCount& operator=(FaultCount&&) = delete;

  void Add() { ++*count_; }
  /// Often enough to be found.
  [[nodiscard]] bool IsEnough() const { return *count_ >= kEnough; }

 private:
  static constexpr int kEnough = 3;

  std::atomic<int>* count_;
};

}  // namespace quorvane::test
