#pragma once

#include <QTimer>
#include <deque>
#include <functional>
#include <map>
#include <string>

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "tools/screenshots/Camera.h"

namespace quorvane::screenshots {

/// Acts in the user's stead on the way through the screens: what is to be done in each window is
/// told beforehand, and every message is photographed and answered. A window that nothing is told
/// for is photographed and closed.
class Guide {
 public:
  /// Both outlive the guide.
  Guide(qt::QtFrontEnd& screen, Camera& camera);
  ~Guide();
  Guide(const Guide&) = delete;
  Guide& operator=(const Guide&) = delete;
  Guide(Guide&&) = delete;
  Guide& operator=(Guide&&) = delete;

  /// What to do the next time that form of the module comes up.
  void On(const std::string& form, std::function<void(qt::FormWindow&)> step);
  /// The same for a dialog of the host, by its object name.
  void OnDialog(const std::string& dialog, std::function<void(QWidget&)> step);
  /// The name of the picture of the module's next message.
  void NameMessage(const QString& name) { message_ = name; }
  /// The name of the picture of the next busy sign that shows.
  void NameBusy(const QString& name) { busy_ = name; }

  /// Throws what went wrong on the way, a window that never came up included.
  void Finish() const;

  static void Press(qt::FormWindow& window, const std::string& button);
  /// The entry of that text, or the first that begins with it; the failure names it.
  static void Pick(qt::FormWindow& window, const std::string& list, const QString& text);
  static void Pick(qt::FormWindow& window, const std::string& list, int index);
  static void Row(qt::FormWindow& window, const std::string& grid, int row, int column = 0);
  static void Tab(qt::FormWindow& window, const std::string& strip, int tab);

 private:
  void Look();
  void LookForBusySign();

  qt::QtFrontEnd& screen_;
  Camera& camera_;
  std::map<std::string, std::deque<std::function<void(qt::FormWindow&)>>> steps_;
  std::map<std::string, std::deque<std::function<void(QWidget&)>>> dialogSteps_;
  QString message_;
  QString busy_;
  std::string failure_;
  QTimer look_;
};

}  // namespace quorvane::screenshots
