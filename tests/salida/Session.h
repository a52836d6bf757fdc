#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace quorvane::zendria {
class MainWindow;
}

namespace quorvane::test {

class Robot;

/// What a user does in the program from when it stands until he closes its window.
struct Session {
  std::string name{};
  std::string sql{};                     ///< done to the school before
  std::vector<std::string> arguments{};  ///< behind the school's file
  /// Lays out his steps; before each of them he rests.
  std::function<void(Robot& user)> prepare{};
  /// Opens what the steps are for, with the school open.
  std::function<void(zendria::MainWindow& window)> begin{};
  /// What it leaves in the school, for a SELECT of one number, when nobody disturbs it.
  std::string select = "SELECT 0";
  int expected = 0;
  /// What the program says of the statement that the school refuses, where nobody is asked any
  /// more; empty where it takes all.
  std::string refusal{};
};

void PrintTo(const Session& session, std::ostream* out);

/// All forms of the grades, saved and cancelled, the register with all its dialogs, and the
/// host's own dialogs.
const std::vector<Session>& Sessions();

}  // namespace quorvane::test
