#pragma once

#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "apps/escuela/Prng.h"
#include "tests/ventana/InputQueue.h"
#include "tests/ventana/Keys.h"
#include "tests/ventana/WatchedScreen.h"
#include "tests/walk/History.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/School.h"

namespace quorvane::test {

/// A grade form, and what step one has to choose for it to be shown.
struct GradeScreen {
  const char* form;
  int node;
  const char* evaluation;
};

/// How fast keys come: each when the one before has had its effect, or whole bursts of them, which
/// is what a fast typist and a slow machine make.
enum class Pace { Slow, Fast };

/// One run of keys on a grade form of the sample school, the same however often it is made. It
/// tells all that came of it, to be held against another run's: the statements, what stood in the
/// cells whenever a button was pressed or Esc was left to the form, and at the end.
class KeyPass : private Onlooker {
 public:
  KeyPass(const GradeScreen& which, const std::vector<const KeyPress*>& keys, Pace pace);

  std::vector<std::string> Run();

 private:
  class EscapeFilter;

  void Loading(Form& /*form*/) override {}
  void Opened(Form& /*form*/) override {}
  void Accepting(const Form& /*form*/) override {}
  void Settle() override {}

  void Tick();
  void Choose(qt::FormWindow& window);
  void Begin(qt::FormWindow& window);
  void Finish(qt::FormWindow& window);
  void Log(const std::string& what);
  void LogCells(const qt::FormWindow& window, const std::string& when);

  const GradeScreen& which_;
  const std::vector<const KeyPress*>& keys_;
  Pace pace_;
  Prng bursts_{1};
  History history_;
  School school_{School::Sample{}};
  WatchedScreen screen_{history_};
  InputQueue queue_;
  QTimer turn_;
  std::vector<std::string> log_;
  std::function<void()> save_;
  std::size_t next_ = 0;   ///< the key to come
  std::size_t entry_ = 0;  ///< of step one's last list, to be tried
  int quiet_ = 0;
  bool begun_ = false;
  bool finished_ = false;
};

}  // namespace quorvane::test
