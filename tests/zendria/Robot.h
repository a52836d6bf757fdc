#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QMessageBox>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "platform/controls/Form.h"

namespace quorvane::test {

/// The button of that caption in a window.
inline QAbstractButton& Button(const QWidget& window, const QString& caption) {
  for (auto* const button : window.findChildren<QAbstractButton*>())
    if (button->text() == caption) return *button;
  throw std::runtime_error("No button " + caption.toStdString());
}

/// A user who was told beforehand what to do in each window: steps wait for the window they are
/// for, and are taken in their order when it comes up. A window without a step is noted and
/// closed, so that no test hangs.
class Robot {
 public:
  /// `screen` outlives the robot.
  explicit Robot(qt::QtFrontEnd& screen) : screen_(screen) {
    screen_.WindowShown = [this](qt::FormWindow& window) { Act(window); };
    screen_.MessageShown = [this](QMessageBox& box) {
      messages.push_back(box.text().toStdString());
      box.accept();
    };
    QObject::connect(&look_, &QTimer::timeout, &look_, [this] { LookForDialogs(); });
    look_.start(5);
  }
  ~Robot() {
    screen_.WindowShown = nullptr;
    screen_.MessageShown = nullptr;
  }
  Robot(Robot&&) = delete;

  using Step = std::function<void(qt::FormWindow&)>;

  /// One of the user's gestures, for `Doing`.
  struct Deed {
    // NOLINTNEXTLINE(google-explicit-constructor): the name of a button is what is handed over.
    Deed(const char* button) : act([=](qt::FormWindow& window) { Click(window, button); }) {}
    Deed(const char* combo, const char* entry)
        : act([=](qt::FormWindow& window) { Pick(window, combo, entry); }) {}
    Deed(const char* list, int row)
        : act([=](qt::FormWindow& window) { ClickRow(window, list, row); }) {}
    Deed(const char* control, Qt::Key key)
        : act([=](qt::FormWindow& window) { Press(window, control, key); }) {}
    Deed(int row, int column, const char* grade)
        : act([=](qt::FormWindow& window) { Grade(window, row, column, grade); }) {}
    Step act;
  };
  /// Does all that, one after the other.
  static Step Doing(const std::vector<Deed>& deeds) {
    return [deeds](qt::FormWindow& window) {
      for (const auto& deed : deeds) deed.act(window);
    };
  }

  /// What to do the next time that form of the module comes up.
  void On(const std::string& form, Step step) { steps_[form].push_back(std::move(step)); }
  void On(const std::string& form, const std::vector<Deed>& deeds) { On(form, Doing(deeds)); }
  /// What to do the next time that dialog of the host comes up, by its object name.
  template <class Dialog = QWidget>
  void OnDialog(const std::string& dialog,
                std::type_identity_t<std::function<void(Dialog&)>> step) {
    dialogSteps_[dialog].push_back(
        [step = std::move(step)](QWidget& shown) { step(dynamic_cast<Dialog&>(shown)); });
  }

  /// The texts of the module's messages so far; they are accepted at once.
  std::vector<std::string> messages;
  std::vector<std::string> unexpected;  ///< windows that no step waited for
  /// Every step was taken.
  [[nodiscard]] bool Done() const { return AllTaken(steps_) && AllTaken(dialogSteps_); }

  // The user's gestures on a form's window.
  static void Click(qt::FormWindow& window, const std::string& button) {
    QTest::mouseClick(&Find(window, button), Qt::LeftButton);
  }
  static void Press(qt::FormWindow& window, const std::string& control, Qt::Key key) {
    QTest::keyClick(&Find(window, control), key);
  }
  /// Opens the list with the keyboard and types the beginning of the entry.
  static void Pick(qt::FormWindow& window, const std::string& combo, const QString& text) {
    auto& box = dynamic_cast<QComboBox&>(Find(window, combo));
    box.setFocus();
    // With the keyboard alone the box takes letters as the beginning of an entry.
    QTest::keyClicks(&box, text);
    EXPECT_TRUE(box.currentText().startsWith(text)) << combo << ": " << text.toStdString();
  }
  static void ClickRow(qt::FormWindow& window, const std::string& list, int row) {
    auto& view = dynamic_cast<QAbstractItemView&>(Find(window, list));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, RowOf(view, row));
  }
  static void DoubleClickRow(qt::FormWindow& window, const std::string& list, int row) {
    auto& view = dynamic_cast<QAbstractItemView&>(Find(window, list));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, RowOf(view, row));
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, RowOf(view, row));
  }
  static QTableView& Grid(const qt::FormWindow& window) {
    return dynamic_cast<QTableView&>(*window.Widget("rtvNotasAlumno"));
  }
  static QString CellText(const qt::FormWindow& window, int row, int column) {
    return Grid(window).model()->index(row, column).data().toString();
  }
  /// Goes to a cell of grades, and presses that there.
  static void PressAt(const qt::FormWindow& window, int row, int column, QKeyCombination key) {
    auto& grid = Grid(window);
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(row, column));
    QTest::keyClick(&grid, key.key(), key.keyboardModifiers());
  }
  /// Begins the edit of a cell of grades; what takes the keys of the list that it opens, null
  /// without one.
  static QWidget* OpenList(qt::FormWindow& window, int row, int column) {
    PressAt(window, row, column, Qt::Key_F2);
    // An open list has the keyboard.
    auto* const focus = window.focusWidget();
    return focus == &Grid(window) ? nullptr : focus;
  }
  /// Picks an entry of such a list with the keyboard: by what is typed, or the first, which is
  /// blank.
  static void Grade(qt::FormWindow& window, int row, int column, const QString& text) {
    auto* const filter = OpenList(window, row, column);
    ASSERT_NE(filter, nullptr);
    if (text.isEmpty())
      QTest::keyClick(filter, Qt::Key_PageUp);
    else
      QTest::keyClicks(filter, text);
    QTest::keyClick(filter, Qt::Key_Return);
  }

 private:
  /// Set on a dialog of the host that its step has been taken for.
  static constexpr auto kMet = "met";

  static QWidget& Find(qt::FormWindow& window, const std::string& control) {
    auto* const widget = window.Widget(control);
    if (widget == nullptr) throw std::runtime_error("No widget for the control " + control);
    return *widget;
  }

  static QPoint RowOf(QAbstractItemView& view, int row) {
    return view.visualRect(view.model()->index(row, 0)).center();
  }

  template <class Map>
  static bool AllTaken(const Map& steps) {
    return std::all_of(steps.begin(), steps.end(),
                       [](const auto& entry) { return entry.second.empty(); });
  }

  void Act(qt::FormWindow& window) {
    auto& steps = steps_[window.Model().Name()];
    if (steps.empty()) {
      unexpected.push_back(window.Model().Name());
      window.close();
      return;
    }
    const auto step = std::move(steps.front());
    steps.pop_front();
    step(window);
  }

  void LookForDialogs() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog->property(kMet).toBool() || dialog->objectName().isEmpty())
      return;
    const auto name = dialog->objectName().toStdString();
    if (dynamic_cast<qt::FormWindow*>(dialog) != nullptr) return;
    auto& steps = dialogSteps_[name];
    if (steps.empty()) {
      unexpected.push_back(name);
      dialog->reject();
      return;
    }
    const auto step = std::move(steps.front());
    steps.pop_front();
    dialog->setProperty(kMet, true);
    // Not from inside the timer's own signal, which would be deaf to what the step opens.
    QTimer::singleShot(0, dialog, [dialog, step] { step(*dialog); });
  }

  qt::QtFrontEnd& screen_;
  std::map<std::string, std::deque<Step>> steps_;
  std::map<std::string, std::deque<std::function<void(QWidget&)>>> dialogSteps_;
  QTimer look_;
};

}  // namespace quorvane::test
