#pragma once

#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"

namespace quorvane::test {

/// A user who was told beforehand what to do in each window: steps wait for the window they are
/// for, and are taken in their order when it comes up. A window without a step is noted and
/// closed, so that no test hangs.
class Robot {
 public:
  /// `screen` outlives the robot.
  explicit Robot(qt::QtFrontEnd& screen);
  ~Robot();
  Robot(Robot&&) = delete;

  using Step = std::function<void(qt::FormWindow&)>;

  /// One of the user's gestures, for `Doing`.
  struct Deed {
    // NOLINTNEXTLINE(google-explicit-constructor): the name of a button is what is handed over.
    Deed(const char* button);
    Deed(const char* combo, const char* entry);    ///< `Pick`
    Deed(const char* list, int row);               ///< `ClickRow`
    Deed(const char* control, Qt::Key key);        ///< `Press`
    Deed(int row, int column, const char* grade);  ///< `Grade`
    Step act;
  };
  /// Does all that, one after the other.
  static Step Doing(const std::vector<Deed>& deeds);

  /// What to do the next time that form of the module comes up.
  void On(const std::string& form, Step step);
  void On(const std::string& form, const std::vector<Deed>& deeds) { On(form, Doing(deeds)); }
  /// What to do the next time that dialog of the host comes up, by its object name.
  void OnDialog(const std::string& dialog, std::function<void(QWidget&)> step);

  /// The texts of the module's messages so far; they are accepted at once.
  std::vector<std::string> messages;
  std::vector<std::string> unexpected;  ///< windows that no step waited for
  [[nodiscard]] bool Done() const;      ///< every step was taken

  // The user's gestures on a form's window.
  static void Click(qt::FormWindow& window, const std::string& button);
  static void Press(qt::FormWindow& window, const std::string& control, Qt::Key key);
  /// Opens the list with the keyboard and types the beginning of the entry.
  static void Pick(qt::FormWindow& window, const std::string& combo, const QString& text);
  static void ClickRow(qt::FormWindow& window, const std::string& list, int row);
  static void DoubleClickRow(qt::FormWindow& window, const std::string& list, int row);
  /// Begins the edit of a cell of grades; what takes the keys of the list that it opens, null
  /// without one.
  static QWidget* OpenList(qt::FormWindow& window, int row, int column);
  /// Picks an entry of such a list with the keyboard: by what is typed, or the first, which is
  /// blank.
  static void Grade(qt::FormWindow& window, int row, int column, const QString& text);

 private:
  void Act(qt::FormWindow& window);
  void LookForDialogs();

  qt::QtFrontEnd& screen_;
  std::map<std::string, std::deque<Step>> steps_;
  std::map<std::string, std::deque<std::function<void(QWidget&)>>> dialogSteps_;
  QTimer look_;
};

}  // namespace quorvane::test
