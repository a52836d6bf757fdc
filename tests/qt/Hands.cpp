#include "tests/qt/Hands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTabBar>
#include <gtest/gtest.h>

#include "adapters/qt/grid/RetivoEditor.h"

namespace quorvane::test {

Gesture Click(const std::string& control) {
  return [=](auto& window) { QTest::mouseClick(Of(window, control), Qt::LeftButton); };
}

Gesture Key(const std::string& control, Qt::Key key, Qt::KeyboardModifiers with) {
  return [=](auto& window) {
    auto* widget = Of(window, control);
    widget->setFocus();
    QTest::keyClick(widget, key, with);
  };
}

Gesture Type(const std::string& control, const std::string& text) {
  return [=](auto& window) {
    auto* widget = Of(window, control);
    widget->setFocus();
    for (const auto letter : QString::fromStdString(text)) {
      // QTest knows the keys of ASCII letters alone.
      const auto key = letter.unicode() < 128 ? letter.toUpper().unicode() : 0;
      for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, letter);
        QApplication::sendEvent(widget, &event);
      }
    }
  };
}

Gesture Press(Qt::Key key, Qt::KeyboardModifiers with) {
  return [=](auto& window) {
    if (window.focusWidget() == nullptr)
      throw std::logic_error(window.Model().Name() + ": nothing has the keyboard");
    QTest::keyClick(window.focusWidget(), key, with);
  };
}

Gesture Pick(const std::string& combo, int index) {
  return [=](auto& window) {
    auto* box = Of<QComboBox>(window, combo);
    if (index < 0 || index >= box->count()) throw std::logic_error("no such entry in " + combo);
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(index, 0));
    QTest::keyClick(box->view(), Qt::Key_Return);
  };
}

Gesture Pick(const std::string& combo, const std::string& entry) {
  return [=](auto& window) {
    Pick(combo, Of<QComboBox>(window, combo)->findText(QString::fromStdString(entry)))(window);
  };
}

Gesture ClickTab(const std::string& tabStrip, int index) {
  return [=](qt::FormWindow& window) {
    auto* bar = Of(window, tabStrip)->findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
  };
}

Gesture ClickSquare(const std::string& checkBox) {
  return [=](auto& window) {
    QTest::mouseClick(Of(window, checkBox), Qt::LeftButton, {}, QPoint(8, 10));
  };
}

Gesture ClickCell(const std::string& grid, int row, int col) {
  return [=](auto& window) {
    const auto& cells = *Of<QAbstractItemView>(window, grid);
    QTest::mouseClick(cells.viewport(), Qt::LeftButton, {}, CellCentre(cells, row, col));
  };
}

Gesture DoubleClickCell(const std::string& grid, int row, int col) {
  return [=](auto& window) {
    const auto& cells = *Of<QAbstractItemView>(window, grid);
    const auto centre = CellCentre(cells, row, col);
    QTest::mouseClick(cells.viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(cells.viewport(), Qt::LeftButton, {}, centre);
  };
}

std::string CellText(const qt::FormWindow& window, const std::string& grid, int row, int col) {
  const auto* cells = Of<QAbstractItemView>(window, grid)->model();
  return cells->index(row, col).data().toString().toStdString();
}

QPoint CellCentre(const QAbstractItemView& grid, int row, int col) {
  return grid.visualRect(grid.model()->index(row, col)).center();
}

Gesture StandOn(const std::string& grid, int row, int col) {
  return [=](auto& window) {
    auto* cells = Of<QAbstractItemView>(window, grid);
    cells->setFocus();
    cells->setCurrentIndex(cells->model()->index(row, col));
  };
}

qt::RetivoEditor* OpenedList(const qt::FormWindow& window) {
  for (auto* child : window.children())
    if (auto* list = dynamic_cast<qt::RetivoEditor*>(child); list != nullptr && list->IsOpen())
      return list;
  return nullptr;
}

QLineEdit* ListFilter(const qt::FormWindow& window) {
  auto* list = OpenedList(window);
  if (list == nullptr) throw std::logic_error(window.Model().Name() + ": no list is open");
  return list->findChild<QLineEdit*>();
}

Gesture ListIs(bool open) {
  return [=](auto& window) { EXPECT_EQ(OpenedList(window) != nullptr, open); };
}

Gesture HasKeyboard(const std::string& control) {
  return [=](auto& window) { EXPECT_EQ(window.focusWidget(), Of(window, control)); };
}

void IsVisible(const qt::FormWindow& window) { EXPECT_TRUE(window.isVisible()); }

}  // namespace quorvane::test
