// What a program with windows does while a driver's call takes its time.

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>
#include <thread>

#include "adapters/odbc/Waiting.h"

namespace quorvane::test {
namespace {

using namespace std::chrono_literals;
using odbc::Wait;
using odbc::WhileWaiting;

class WaitingTest : public testing::Test {
 protected:
  ~WaitingTest() override { WhileWaiting({}); }
};

TEST_F(WaitingTest, NothingToBeDoneNeedsNoOtherThread) {
  std::thread::id worker;
  Wait([&] { worker = std::this_thread::get_id(); });
  EXPECT_EQ(worker, std::this_thread::get_id());
}

TEST_F(WaitingTest, OneOtherThreadServesAll) {
  WhileWaiting([] { return false; });
  std::set<std::thread::id> workers;
  for (auto i = 0; i < 100; ++i) Wait([&] { workers.insert(std::this_thread::get_id()); });
  EXPECT_EQ(workers.size(), 1U);
  EXPECT_FALSE(workers.contains(std::this_thread::get_id()));
}

TEST_F(WaitingTest, LongWorkIsWaitedForWithSomethingElseInTheThreadThatWaits) {
  std::atomic<int> times = 0;
  auto nested = 0;
  const auto here = std::this_thread::get_id();
  WhileWaiting([&] {
    ++times;
    EXPECT_EQ(std::this_thread::get_id(), here);
    // A handler of the host's that the painting has run, and that asks something itself.
    Wait([&] { ++nested; });
    return false;
  });
  Wait([&] {
    const auto end = std::chrono::steady_clock::now() + 30s;
    while (times < 2 && std::chrono::steady_clock::now() < end) std::this_thread::sleep_for(5ms);
  });
  EXPECT_GE(times, 2);
  EXPECT_EQ(nested, times);
}

TEST_F(WaitingTest, AFailureComesOutAndIsForgotten) {
  WhileWaiting([] { return false; });
  EXPECT_THROW(Wait([] { throw std::runtime_error("perdida"); }), std::runtime_error);
  auto done = false;
  Wait([&] { done = true; });
  EXPECT_TRUE(done);
}

}  // namespace
}  // namespace quorvane::test
