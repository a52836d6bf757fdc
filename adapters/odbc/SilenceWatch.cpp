#include "adapters/odbc/SilenceWatch.h"

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "adapters/odbc/ServerSockets.h"

namespace quorvane::odbc {

struct SilenceWatch::State {
  State(const std::string& port, std::function<bool()> question)
      : sockets(port), answers(std::move(question)) {}

  std::mutex mutex;
  std::condition_variable begun;
  ServerSockets sockets;
  std::function<bool()> answers;
  std::optional<Clock::time_point> askAt;  ///< none while no call is made
  std::uint64_t call = 0;
  bool asleep = false;
  bool ending = false;
  bool silent = false;
};

SilenceWatch::SilenceWatch(const std::string& port, std::function<bool()> answers)
    : state_(std::make_shared<State>(port, std::move(answers))) {
  // Nobody waits for its end: it may be in the middle of a question that takes its time.
  std::thread([state = state_] { Work(state); }).detach();
}

SilenceWatch::~SilenceWatch() {
  const std::lock_guard lock(state_->mutex);
  state_->ending = true;
  state_->begun.notify_one();
}

void SilenceWatch::Begin() {
  const std::lock_guard lock(state_->mutex);
  ++state_->call;
  state_->askAt = Clock::now() + kPatience;
  // To rouse a thread costs more than to begin a call: mostly it finds out by itself.
  if (state_->asleep) state_->begun.notify_one();
}

void SilenceWatch::End() {
  const std::lock_guard lock(state_->mutex);
  state_->askAt.reset();
}

bool SilenceWatch::Connected() {
  const std::lock_guard lock(state_->mutex);
  return state_->sockets.Settle();
}

bool SilenceWatch::FoundSilence() const {
  const std::lock_guard lock(state_->mutex);
  return state_->silent;
}

bool SilenceWatch::HungUp() const {
  const std::lock_guard lock(state_->mutex);
  return state_->sockets.HungUp();
}

void SilenceWatch::Work(const std::shared_ptr<State>& state) {
  std::unique_lock lock(state->mutex);
  while (!state->ending) {
    if (!state->askAt) {
      state->asleep = true;
      state->begun.wait(lock, [&] { return state->ending || state->askAt; });
      state->asleep = false;
    } else if (Clock::now() < *state->askAt) {
      // Later calls set another time meanwhile; this one is no later than theirs.
      state->begun.wait_until(lock, *state->askAt, [&] { return state->ending; });
    } else {
      const auto call = state->call;
      lock.unlock();
      const auto answers = state->answers();
      lock.lock();
      if (call != state->call || !state->askAt) continue;
      state->askAt = Clock::now() + kPatience;
      state->silent = !answers;
      if (!answers) state->sockets.ShutDown();
    }
  }
}

}  // namespace quorvane::odbc
