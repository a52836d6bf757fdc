#include "tests/qt/Hands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTableView>

#include "adapters/qt/grid/RetivoEditor.h"

namespace quorvane::test {
namespace {

QPoint CellCentre(const QTableView& table, int row, int col) {
  return table.visualRect(table.model()->index(row, col)).center();
}

QPoint EntryCentre(const QListWidget& list, int index) {
  return list.visualItemRect(list.item(index)).center();
}

}  // namespace

void Click(const qt::FormWindow& window, const std::string& control) {
  QTest::mouseClick(Of(window, control), Qt::LeftButton);
}

void Key(const qt::FormWindow& window, const std::string& control, Qt::Key key,
         Qt::KeyboardModifiers with) {
  auto* widget = Of(window, control);
  widget->setFocus();
  QTest::keyClick(widget, key, with);
}

void Type(const qt::FormWindow& window, const std::string& control, const std::string& text) {
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
}

void Pick(const qt::FormWindow& window, const std::string& combo, int index) {
  auto* box = Of<QComboBox>(window, combo);
  if (index < 0 || index >= box->count()) throw std::logic_error("no such entry in " + combo);
  box->showPopup();
  box->view()->setCurrentIndex(box->model()->index(index, 0));
  QTest::keyClick(box->view(), Qt::Key_Return);
}

void Pick(const qt::FormWindow& window, const std::string& combo, const std::string& entry) {
  Pick(window, combo, Of<QComboBox>(window, combo)->findText(QString::fromStdString(entry)));
}

void ClickEntry(const qt::FormWindow& window, const std::string& list, int index) {
  auto* rows = Of<QListWidget>(window, list);
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, EntryCentre(*rows, index));
}

void DoubleClickEntry(const qt::FormWindow& window, const std::string& list, int index) {
  auto* rows = Of<QListWidget>(window, list);
  const auto centre = EntryCentre(*rows, index);
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, centre);
  QTest::mouseDClick(rows->viewport(), Qt::LeftButton, {}, centre);
}

void ClickCell(const qt::FormWindow& window, const std::string& grid, int row, int col) {
  auto* table = Of<QTableView>(window, grid);
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, CellCentre(*table, row, col));
}

void DoubleClickCell(const qt::FormWindow& window, const std::string& grid, int row, int col) {
  auto* table = Of<QTableView>(window, grid);
  const auto centre = CellCentre(*table, row, col);
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, centre);
  QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, centre);
}

std::string CellText(const qt::FormWindow& window, const std::string& grid, int row, int col) {
  const auto* cells = Of<QTableView>(window, grid)->model();
  return cells->index(row, col).data().toString().toStdString();
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

Gesture ClickTab(const std::string& tabStrip, int index) {
  return [=](const qt::FormWindow& window) {
    auto* bar = Of(window, tabStrip)->findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
  };
}

Gesture ClickSquare(const std::string& checkBox) {
  return [=](const qt::FormWindow& window) {
    QTest::mouseClick(Of(window, checkBox), Qt::LeftButton, {}, QPoint(8, 10));
  };
}

}  // namespace quorvane::test
