#include "tests/zendria/Robot.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QMessageBox>
#include <QTableView>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

#include "platform/controls/Form.h"

namespace quorvane::test {
namespace {

/// Set on a dialog of the host that its step has been taken for.
constexpr auto kMet = "met";

QWidget& Find(qt::FormWindow& window, const std::string& control) {
  auto* const widget = window.Widget(control);
  if (widget == nullptr) throw std::runtime_error("No widget for the control " + control);
  return *widget;
}

QPoint RowOf(QAbstractItemView& view, int row) {
  return view.visualRect(view.model()->index(row, 0)).center();
}

template <class Map>
bool AllTaken(const Map& steps) {
  return std::all_of(steps.begin(), steps.end(),
                     [](const auto& entry) { return entry.second.empty(); });
}

}  // namespace

Robot::Robot(qt::QtFrontEnd& screen) : screen_(screen) {
  screen_.WindowShown = [this](qt::FormWindow& window) { Act(window); };
  screen_.MessageShown = [this](QMessageBox& box) {
    messages.push_back(box.text().toStdString());
    box.accept();
  };
  QObject::connect(&look_, &QTimer::timeout, &look_, [this] { LookForDialogs(); });
  look_.start(5);
}

Robot::~Robot() {
  screen_.WindowShown = nullptr;
  screen_.MessageShown = nullptr;
}

void Robot::On(const std::string& form, Step step) { steps_[form].push_back(std::move(step)); }

void Robot::OnDialog(const std::string& dialog, std::function<void(QWidget&)> step) {
  dialogSteps_[dialog].push_back(std::move(step));
}

bool Robot::Done() const { return AllTaken(steps_) && AllTaken(dialogSteps_); }

void Robot::Act(qt::FormWindow& window) {
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

void Robot::LookForDialogs() {
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

void Robot::Click(qt::FormWindow& window, const std::string& button) {
  QTest::mouseClick(&Find(window, button), Qt::LeftButton);
}

void Robot::Press(qt::FormWindow& window, const std::string& control, Qt::Key key) {
  QTest::keyClick(&Find(window, control), key);
}

void Robot::Pick(qt::FormWindow& window, const std::string& combo, const QString& text) {
  auto& box = dynamic_cast<QComboBox&>(Find(window, combo));
  box.setFocus();
  // With the keyboard alone the box takes letters as the beginning of an entry.
  QTest::keyClicks(&box, text);
  EXPECT_TRUE(box.currentText().startsWith(text)) << combo << ": " << text.toStdString();
}

void Robot::ClickRow(qt::FormWindow& window, const std::string& list, int row) {
  auto& view = dynamic_cast<QAbstractItemView&>(Find(window, list));
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, RowOf(view, row));
}

void Robot::DoubleClickRow(qt::FormWindow& window, const std::string& list, int row) {
  auto& view = dynamic_cast<QAbstractItemView&>(Find(window, list));
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, RowOf(view, row));
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, RowOf(view, row));
}

QWidget* Robot::OpenList(qt::FormWindow& window, int row, int column) {
  auto& grid = dynamic_cast<QTableView&>(*window.Widget("rtvNotasAlumno"));
  grid.setFocus();
  grid.setCurrentIndex(grid.model()->index(row, column));
  QTest::keyClick(&grid, Qt::Key_F2);
  // An open list has the keyboard.
  auto* const focus = window.focusWidget();
  return focus == &grid ? nullptr : focus;
}

void Robot::Grade(qt::FormWindow& window, int row, int column, const QString& text) {
  auto* const filter = OpenList(window, row, column);
  ASSERT_NE(filter, nullptr);
  if (text.isEmpty())
    QTest::keyClick(filter, Qt::Key_PageUp);
  else
    QTest::keyClicks(filter, text);
  QTest::keyClick(filter, Qt::Key_Return);
}

Robot::Deed::Deed(const char* button)
    : act([=](qt::FormWindow& window) { Click(window, button); }) {}

Robot::Deed::Deed(const char* combo, const char* entry)
    : act([=](qt::FormWindow& window) { Pick(window, combo, entry); }) {}

Robot::Deed::Deed(const char* list, int row)
    : act([=](qt::FormWindow& window) { ClickRow(window, list, row); }) {}

Robot::Deed::Deed(const char* control, Qt::Key key)
    : act([=](qt::FormWindow& window) { Press(window, control, key); }) {}

Robot::Deed::Deed(int row, int column, const char* grade)
    : act([=](qt::FormWindow& window) { Grade(window, row, column, grade); }) {}

Robot::Step Robot::Doing(const std::vector<Deed>& deeds) {
  return [deeds](qt::FormWindow& window) {
    for (const auto& deed : deeds) deed.act(window);
  };
}

}  // namespace quorvane::test
