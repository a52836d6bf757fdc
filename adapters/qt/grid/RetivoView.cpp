#include "adapters/qt/grid/RetivoView.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>

#include "adapters/qt/grid/GridMenu.h"
#include "adapters/qt/grid/GridTable.h"
#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"

namespace quorvane::qt {

RetivoView::RetivoView(FormWindow& window, Retivo& retivo)
    : ControlView(window, retivo), retivo_(retivo), table_(new GridTable(Surface())) {
  Use(table_);
  editor_ = new RetivoEditor(window, *table_);
  editor_->Cell = [this] { return RoomOf(table_->currentIndex()); };
  editor_->Chosen = [this](int entry, RetivoEditor::Then then) {
    EndEdit(entry);
    GoOn(then);
  };
  editor_->LeftAlone = [this](RetivoEditor::Then then) { GoOn(then); };
  table_->setSelectionBehavior(QAbstractItemView::SelectItems);
  table_->setSelectionMode(QAbstractItemView::ContiguousSelection);
  table_->WrapTexts();
  table_->TakesKey = [this](const QKeyEvent& key) { return TakesKey(key); };
  table_->TakesTab = [this](bool forward) { return MoveOn(forward); };
  connect(table_, &QTableView::clicked, this, [this](const QModelIndex& cell) { Open(cell, {}); });
  connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& cell) {
            if (!cell.isValid()) return;
            Gesture([this, cell] {
              retivo_.Row(cell.row() + retivo_.FixedRows());
              retivo_.Col(cell.column());
            });
          });
  connect(table_->horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column) {
    if (!Showing()) draggedColumn_ = column;
  });
  table_->horizontalHeader()->viewport()->installEventFilter(this);
  FillMenu(*new GridMenu(window, retivo, *table_));
}

void RetivoView::FillMenu(GridMenu& menu) {
  menu.Add({"Copiar", "Ctrl+C", [this] { table_->Copy(); }, {}});
  menu.Add({"Copiar la tabla entera", {}, [this] { table_->CopyAll(); }, {}});
}

void RetivoView::Show() { table_->Take(retivo_); }

bool RetivoView::eventFilter(QObject* /*watched*/, QEvent* event) {
  // The drag counts when the user lets go: the form may set every width back.
  if (event->type() != QEvent::MouseButtonRelease || draggedColumn_ < 0) return false;
  const auto column = draggedColumn_;
  draggedColumn_ = -1;
  Gesture([this, column] { retivo_.DragColumn(column, Twips(table_->columnWidth(column))); });
  return false;
}

bool RetivoView::Opens(const QModelIndex& cell) const {
  return cell.isValid() && retivo_.EditsThroughList(cell.column()) &&
         !table_->isColumnHidden(cell.column());
}

QRect RetivoView::RoomOf(const QModelIndex& cell) const {
  auto room = table_->visualRect(cell);
  room.moveTopLeft(table_->viewport()->mapTo(&Window(), room.topLeft()));
  return room;
}

void RetivoView::Open(const QModelIndex& cell, const QString& typed) {
  if (!Opens(cell)) return;
  const QPersistentModelIndex kept(cell);
  auto begun = false;
  Gesture([this, cell, &begun] {
    retivo_.BeginEdit(cell.row() + retivo_.FixedRows(), cell.column());
    begun = true;
  });
  // The form's answer may have been another form, or a grid without that cell.
  if (!begun || !kept.isValid() || !table_->isVisible() || !Window().isVisible()) return;
  std::vector<QString> entries;
  for (const auto& entry : retivo_.Lista(kept.column())) entries.push_back(LineText(entry.text));
  if (entries.empty()) {
    // A cell that offers nothing; what was typed on it must not go unnoticed.
    if (!typed.isEmpty()) QApplication::beep();
    return;
  }
  table_->scrollTo(kept);
  editor_->Open(entries, kept.data().toString(), typed);
  Window().OpenList(editor_);
}

void RetivoView::EndEdit(int entry) {
  Gesture([this, entry] {
    const auto& told = Window().FrontEnd().EditEnding;
    if (told) told(Window().Model(), retivo_, entry);
    retivo_.EndEdit(entry);
  });
}

void RetivoView::GoOn(RetivoEditor::Then then) {
  if (then == RetivoEditor::Then::Stay) return;
  const auto forward = then == RetivoEditor::Then::Next;
  if (!MoveOn(forward)) table_->Leave(forward);
}

bool RetivoView::TakesKey(const QKeyEvent& key) {
  if (key.modifiers() & Qt::ControlModifier &&
      (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab)) {
    table_->Leave(key.key() == Qt::Key_Tab);
    return true;
  }
  const auto cell = table_->currentIndex();
  if (!Opens(cell)) return false;
  if (key.key() == Qt::Key_F2 || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
    Open(cell, {});
    return true;
  }
  const auto text = key.text();
  const auto typing = !text.isEmpty() && text.front().isPrint() &&
                      (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  if (typing) Open(cell, text.trimmed());
  return typing;
}

bool RetivoView::MoveOn(bool forward) {
  const auto* cells = table_->model();
  const auto cell = table_->currentIndex();
  if (!cell.isValid()) return false;
  const auto count = cells->rowCount() * cells->columnCount();
  const auto step = forward ? 1 : -1;
  for (auto at = cell.row() * cells->columnCount() + cell.column() + step; at >= 0 && at < count;
       at += step) {
    const auto next = cells->index(at / cells->columnCount(), at % cells->columnCount());
    if (!Opens(next)) continue;
    table_->setCurrentIndex(next);
    return true;
  }
  // Beyond the last cell the keyboard goes to the next control.
  return false;
}

}  // namespace quorvane::qt
