#pragma once

#include <cstdint>

#include "adapters/guion/host/HostConnections.h"
#include "adapters/guion/host/HostOptions.h"
#include "adapters/guion/host/ModuleEntry.h"

namespace quorvane::guion {

class EventPrinter;

/// The application that hosts the module, as a script sees it: it hands in the session, opens
/// screens, answers as the host's components, and watches the module's statements. It is in use
/// from its making to its end, one at a time.
class Host {
 public:
  Host(HostOptions options, HostConnections connections, ModuleEntry module, EventPrinter& events);
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  Host(Host&&) = delete;
  Host& operator=(Host&&) = delete;

  /// Hands the session in, as the options say now. Fails as the module does.
  void HandSessionIn();
  /// Opens a screen and returns when it has gone; connects again first where the connection was
  /// lost. Fails as the module does, and before it when that fails or the school's file has gone;
  /// error 6 for a node that a byte can't hold.
  void Activate(std::int32_t nodo);

  [[nodiscard]] HostOptions& Options() noexcept { return options_; }
  [[nodiscard]] Connection& OtherUser() const noexcept { return connections_.otra; }

  /// What the next person search answers, and only that one.
  std::int32_t docente = 0;
  bool notasActivas = false;

  /// The statement of that number, counted from 1 on from now, fails before it reaches the engine.
  void FailStatement(std::int32_t number) noexcept { untilFailure_ = number; }

 private:
  void Watch(Connection& connection);
  void RegisterComponents();

  HostOptions options_;
  HostConnections connections_;
  ModuleEntry module_;
  EventPrinter& events_;
  std::int32_t untilFailure_ = 0;
};

}  // namespace quorvane::guion
