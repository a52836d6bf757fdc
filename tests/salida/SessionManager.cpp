#include "tests/salida/SessionManager.h"

#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <vector>

namespace quorvane::test {

/// What the library calls back, and the connections that it has to be called for.
struct SessionManager::State {
  int listeners = 0;
  IceListenObj* listening = nullptr;
  std::vector<IceConn> connections;
  SmsConn program = nullptr;
  bool registered = false;
  bool saved = false;
  bool gone = false;
  bool wantsUser = false;

  static State& Of(SmPointer data) { return *static_cast<State*>(data); }

  static int Register(SmsConn program, SmPointer data, char* former) {
    // Nobody comes back from an earlier session: the program asks again without a name.
    if (former != nullptr) return 0;
    SmsRegisterClientReply(program, SmsGenerateClientID(program));
    SmsSaveYourself(program, SmSaveLocal, False, SmInteractStyleNone, False);
    Of(data).program = program;
    return 1;
  }
  static void WantsUser(SmsConn /*program*/, SmPointer data, int /*kind*/) {
    Of(data).wantsUser = true;
  }
  static void HasAsked(SmsConn /*program*/, SmPointer /*data*/, Bool /*cancels*/) {}
  static void SaveRequest(SmsConn /*program*/, SmPointer /*data*/, int /*type*/, Bool /*shutdown*/,
                          int /*style*/, Bool /*fast*/, Bool /*global*/) {}
  static void SecondPhase(SmsConn program, SmPointer /*data*/) { SmsSaveYourselfPhase2(program); }
  static void Saved(SmsConn program, SmPointer data, Bool /*success*/) {
    auto& state = Of(data);
    // The first is what every program answers to being registered.
    if (state.registered)
      state.saved = true;
    else
      SmsSaveComplete(program);
    state.registered = true;
  }
  static void Closed(SmsConn program, SmPointer data, int count, char** reasons) {
    SmFreeReasons(count, reasons);
    Of(data).gone = true;
    IceSetShutdownNegotiation(SmsGetIceConnection(program), False);
  }
  static void SetProperties(SmsConn /*program*/, SmPointer /*data*/, int count, SmProp** list) {
    for (int at = 0; at < count; ++at) SmFreeProperty(list[at]);
    std::free(list);
  }
  static void DeleteProperties(SmsConn /*program*/, SmPointer /*data*/, int count, char** names) {
    for (int at = 0; at < count; ++at) std::free(names[at]);
    std::free(names);
  }
  static void GetProperties(SmsConn program, SmPointer /*data*/) {
    SmsReturnProperties(program, 0, nullptr);
  }

  static Status Accept(SmsConn /*program*/, SmPointer data, unsigned long* mask,
                       SmsCallbacks* callbacks, char** /*reason*/) {
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    callbacks->register_client = {Register, data};
    callbacks->interact_request = {WantsUser, data};
    callbacks->interact_done = {HasAsked, data};
    callbacks->save_yourself_request = {SaveRequest, data};
    callbacks->save_yourself_phase2_request = {SecondPhase, data};
    callbacks->save_yourself_done = {Saved, data};
    callbacks->close_connection = {Closed, data};
    callbacks->set_properties = {SetProperties, data};
    callbacks->delete_properties = {DeleteProperties, data};
    callbacks->get_properties = {GetProperties, data};
    return 1;
  }

  void TakeIn(IceListenObj from) {
    IceAcceptStatus status = IceAcceptFailure;
    auto* const connection = IceAcceptConnection(from, &status);
    if (connection != nullptr) connections.push_back(connection);
  }

  /// False when the connection is at its end.
  static bool Process(IceConn connection) {
    if (IceProcessMessages(connection, nullptr, nullptr) == IceProcessMessagesSuccess) return true;
    IceSetShutdownNegotiation(connection, False);
    IceCloseConnection(connection);
    return false;
  }
};

SessionManager::SessionManager() : state_(std::make_unique<State>()) {
  std::array<char, 256> error{};
  // The library's own answer to a program that is gone is to end this one.
  IceSetIOErrorHandler([](IceConn) {});
  static char vendor[] = "quorvane";
  static char release[] = "1";
  if (SmsInitialize(
          vendor, release, State::Accept, state_.get(), [](char*) -> Bool { return True; },
          static_cast<int>(error.size()), error.data()) == 0 ||
      IceListenForConnections(&state_->listeners, &state_->listening,
                              static_cast<int>(error.size()), error.data()) == 0)
    throw std::runtime_error(error.data());
  for (int at = 0; at < state_->listeners; ++at) {
    IceSetHostBasedAuthProc(state_->listening[at], [](char*) -> Bool { return True; });
    char* const address = IceGetListenConnectionString(state_->listening[at]);
    if (std::strncmp(address, "local/", 6) == 0 || address_.empty()) address_ = address;
    std::free(address);
  }
}

SessionManager::~SessionManager() { IceFreeListenObjs(state_->listeners, state_->listening); }

bool SessionManager::Serve(const bool& done) {
  using namespace std::chrono_literals;
  constexpr auto kPatience = 30s;
  const auto until = std::chrono::steady_clock::now() + kPatience;
  auto& connections = state_->connections;
  while (!done && std::chrono::steady_clock::now() < until) {
    std::vector<pollfd> waiting;
    for (int at = 0; at < state_->listeners; ++at)
      waiting.push_back({IceGetListenConnectionNumber(state_->listening[at]), POLLIN, 0});
    for (auto* const connection : connections)
      waiting.push_back({IceConnectionNumber(connection), POLLIN, 0});
    poll(waiting.data(), waiting.size(), 100);
    const auto first = static_cast<std::size_t>(state_->listeners);
    for (auto at = waiting.size(); at-- > first;)
      if (waiting[at].revents != 0 && !State::Process(connections[at - first])) {
        connections.erase(connections.begin() + static_cast<std::ptrdiff_t>(at - first));
        state_->gone = true;
      }
    for (std::size_t at = 0; at < first; ++at)
      if (waiting[at].revents != 0) state_->TakeIn(state_->listening[at]);
  }
  return done;
}

bool SessionManager::HasProgram() { return Serve(state_->registered); }

bool SessionManager::AskToSave() {
  state_->saved = false;
  SmsSaveYourself(state_->program, SmSaveBoth, True, SmInteractStyleNone, False);
  return Serve(state_->saved);
}

void SessionManager::CallOff() { SmsShutdownCancelled(state_->program); }

bool SessionManager::AskToEnd() {
  SmsDie(state_->program);
  return Serve(state_->gone);
}

bool SessionManager::WasAskedForUser() const { return state_->wantsUser; }

}  // namespace quorvane::test
