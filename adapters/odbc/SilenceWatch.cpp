#include "adapters/odbc/SilenceWatch.h"

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace quorvane::odbc {

struct SilenceWatch::State {
  State(const std::string& port, Question question) : sockets(port), answers(std::move(question)) {}

  std::mutex mutex;
  std::condition_variable changed;
  ServerSockets sockets;
  Question answers;
  std::optional<Clock::time_point> askAt;  ///< none while no call is made
  std::uint64_t call = 0;
  bool hurried = false;  ///< this call: once is enough where the server answers
  bool asleep = false;
  bool ending = false;
  bool silent = false;
};

struct SilenceWatch::All {
  std::mutex mutex;
  std::vector<std::weak_ptr<State>> states;

  static All& Instance() {
    // A last question may outlive the program's own end.
    static auto* const all = new All;
    return *all;
  }
};

SilenceWatch::SilenceWatch(const std::string& port, Question answers)
    : state_(std::make_shared<State>(port, std::move(answers))) {
  auto& all = All::Instance();
  {
    const std::lock_guard lock(all.mutex);
    std::erase_if(all.states, [](const auto& state) { return state.expired(); });
    all.states.push_back(state_);
  }
  // Nobody waits for its end: it may be in the middle of a question that takes its time.
  std::thread([state = state_] { Work(state); }).detach();
}

SilenceWatch::~SilenceWatch() {
  const std::lock_guard lock(state_->mutex);
  state_->ending = true;
  state_->changed.notify_all();
}

void SilenceWatch::Begin() {
  const std::lock_guard lock(state_->mutex);
  ++state_->call;
  state_->hurried = false;
  state_->askAt = Clock::now() + kPatience;
  // To rouse a thread costs more than to begin a call: mostly it finds out by itself.
  if (state_->asleep) state_->changed.notify_all();
}

void SilenceWatch::End() {
  const std::lock_guard lock(state_->mutex);
  state_->askAt.reset();
}

void SilenceWatch::Hurry() {
  auto& all = All::Instance();
  const std::lock_guard everybody(all.mutex);
  for (const auto& one : all.states) {
    const auto state = one.lock();
    if (state == nullptr) continue;
    const std::lock_guard lock(state->mutex);
    if (!state->askAt || state->hurried) continue;
    state->hurried = true;
    state->askAt = Clock::now();
    state->changed.notify_all();
  }
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
      state->changed.wait(lock, [&] { return state->ending || state->askAt; });
      state->asleep = false;
    } else if (const auto askAt = *state->askAt; Clock::now() < askAt) {
      // Later calls set another time meanwhile; this one is no later than theirs.
      state->changed.wait_until(lock, askAt);
    } else {
      const auto call = state->call;
      const auto reached = state->sockets.Reached();
      lock.unlock();
      const auto answers = state->answers(reached);
      lock.lock();
      if (state->ending || call != state->call || !state->askAt) continue;
      state->askAt = Clock::now() + kPatience;
      state->silent = !answers;
      if (!answers) state->sockets.ShutDown();
    }
  }
}

}  // namespace quorvane::odbc
