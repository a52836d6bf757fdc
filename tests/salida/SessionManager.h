#pragma once

#include <memory>
#include <string>

namespace quorvane::test {

/// A desktop's session manager with one program in its session.
class SessionManager {
 public:
  SessionManager();
  ~SessionManager();
  SessionManager(SessionManager&&) = delete;

  /// Where a program finds it, for SESSION_MANAGER.
  [[nodiscard]] const std::string& Address() const noexcept { return address_; }

  // Each waits for the program's answer; false when none comes.

  [[nodiscard]] bool HasProgram();
  /// Somebody wants to log out: the program is to save without asking anybody.
  [[nodiscard]] bool AskToSave();
  /// The log-out is called off.
  void CallOff();
  /// Everybody has saved: the program is to end. False when it doesn't leave the session.
  [[nodiscard]] bool AskToEnd();

  /// The program wanted to ask its user something.
  [[nodiscard]] bool WasAskedForUser() const;

 private:
  struct State;

  [[nodiscard]] bool Serve(const bool& done);

  std::unique_ptr<State> state_;
  std::string address_;
};

}  // namespace quorvane::test
