#include "adapters/qt/grid/RetivoView.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "adapters/qt/grid/CellTargets.h"
#include "adapters/qt/grid/GridCommand.h"
#include "adapters/qt/grid/GridHint.h"
#include "adapters/qt/grid/GridMenu.h"
#include "adapters/qt/grid/GridTable.h"
#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"

namespace quorvane::qt {
namespace {

constexpr qsizetype kLinesInMessage = 10;
constexpr qsizetype kLinesInDetails = 1000;

bool IsEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool IsArrowUpOrDown(const QKeyEvent& key) {
  return key.key() == Qt::Key_Up || key.key() == Qt::Key_Down;
}

}  // namespace

RetivoView::RetivoView(FormWindow& window, Retivo& retivo)
    : ControlView(window, retivo),
      retivo_(retivo),
      table_(new GridTable(Surface())),
      hint_(new GridHint(Surface())),
      edits_(window, retivo) {
  Use(table_);
  editor_ = new RetivoEditor(window, *table_);
  editor_->Cell = [this] { return RoomOf(table_->currentIndex()); };
  editor_->Chosen = [this](int entry, RetivoEditor::Then then) {
    Gesture([this, entry] { edits_.End(entry); });
    GoOn(then);
  };
  editor_->LeftAlone = [this](RetivoEditor::Then then) { GoOn(then); };
  table_->setSelectionBehavior(QAbstractItemView::SelectItems);
  table_->setSelectionMode(QAbstractItemView::ContiguousSelection);
  table_->setAccessibleDescription(hint_->text());
  table_->WrapTexts();
  table_->StretchColumns();
  table_->TakesKey = [this](const QKeyEvent& key) { return TakesKey(key); };
  table_->TakesTab = [this](bool forward) { return MoveOn(forward); };
  connect(table_, &QTableView::clicked, this,
          [this](const QModelIndex& cell) { OpenByMouse(cell); });
  connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& cell) {
            if (!cell.isValid()) return;
            Gesture([this, cell] {
              retivo_.Row(cell.row() + retivo_.FixedRows());
              retivo_.Col(cell.column());
            });
          });
  connect(table_->horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column) {
    if (!Showing() && !table_->LaysOut()) draggedColumn_ = column;
  });
  table_->horizontalHeader()->viewport()->installEventFilter(this);
  FillMenu(*new GridMenu(window, retivo, *table_));
}

void RetivoView::FillMenu(GridMenu& menu) {
  menu.Add({"Copiar", "Ctrl+C", [this] { table_->Copy(); }, {}});
  menu.Add({"Copiar la tabla entera", {}, [this] { table_->CopyAll(); }, {}});
  menu.Add({"Pegar", "Ctrl+V", [this] { Paste(); },
            [] { return !QGuiApplication::clipboard()->text().isEmpty(); }});
  menu.Add({"Rellenar hacia abajo", "Ctrl+D", [this] { FillDown(); },
            [this] { return Opens(table_->Start()) && !ToFill().empty(); }});
}

void RetivoView::Place(const QRect& room) {
  const auto shown = Model().Visible();
  if (!shown) hint_->hide();
  ControlView::Place(shown ? hint_->TakeFrom(room) : room);
  // Where the line would take the grid's room its keys are told all the same.
  table_->setToolTip(hint_->isHidden() ? hint_->text() : QString());
}

bool RetivoView::KeepsKey(const QKeyEvent& key) const {
  return IsArrowUpOrDown(key) && (key.modifiers() & Qt::ControlModifier) != 0;
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
  editor_->Open(entries, EntryOf(kept), typed);
  Window().OpenList(editor_);
}

int RetivoView::EntryOf(const QModelIndex& cell) const {
  const auto shown = cell.data().toString().trimmed();
  const auto stored = edits_.Stored(cell.row(), cell.column());
  const auto data = stored.value_or(0);
  // What is shown without anything behind it is no more than its text.
  const auto byText = !stored || (data == 0 && !shown.isEmpty());
  const auto& list = retivo_.Lista(cell.column());
  const auto found = std::find_if(list.begin(), list.end(), [&](const auto& entry) {
    return byText ? LineText(entry.text).trimmed() == shown : entry.data == data;
  });
  return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

void RetivoView::OpenByMouse(const QModelIndex& cell) {
  if (QApplication::keyboardModifiers() == Qt::NoModifier) Open(cell, {});
}

void RetivoView::GoOn(RetivoEditor::Then then) {
  using Then = RetivoEditor::Then;
  switch (then) {
    case Then::Stay:
      return;
    case Then::Down:
      return MoveBy(1);
    case Then::Up:
      return MoveBy(-1);
    case Then::Next:
    case Then::Previous:
      break;
  }
  const auto forward = then == Then::Next;
  if (!MoveOn(forward)) table_->Leave(forward);
}

void RetivoView::MoveBy(int rows) {
  const auto cell = table_->currentIndex();
  const auto next = cell.siblingAtRow(cell.row() + rows);
  if (next.isValid()) return table_->GoTo(next);
  // Who looks at his papers is to hear that there is no further student.
  QApplication::beep();
}

void RetivoView::Paste() {
  const auto targets = PasteTargets(*table_, RowsOfText(QGuiApplication::clipboard()->text()));
  if (targets.empty()) return QApplication::beep();
  Edit("Pegar", targets);
  const auto* const cells = table_->model();
  const auto right = std::max(targets.front().column, targets.back().column);
  const auto last = cells->index(std::min(targets.back().row, cells->rowCount() - 1),
                                 std::min(right, cells->columnCount() - 1));
  const auto first = cells->index(targets.front().row, targets.front().column);
  if (first.isValid() && last.isValid()) table_->Choose({first, last});
}

std::vector<CellText> RetivoView::ToFill() const {
  return FillTargets(*table_, [this](int row, int column) { return edits_.Stored(row, column); });
}

void RetivoView::FillDown() {
  const auto targets = ToFill();
  if (targets.empty() || !Opens(table_->Start())) return QApplication::beep();
  Edit("Rellenar hacia abajo", targets);
}

void RetivoView::Clear() {
  auto targets = ClearTargets(*table_);
  std::erase_if(targets, [this](const CellText& cell) {
    return !Opens(table_->model()->index(cell.row, cell.column));
  });
  if (targets.empty()) return QApplication::beep();
  if (targets.size() > 1) return Edit("Quitar notas", targets);
  // One key on one cell, perhaps with more to come: no message may take those.
  Gesture([&] {
    if (!edits_.Put(targets).isEmpty()) QApplication::beep();
  });
}

void RetivoView::Edit(const QString& title, const std::vector<CellText>& cells) {
  const auto chosen = table_->Chosen();
  Gesture([&] {
    const auto left = edits_.Put(cells);
    if (left.isEmpty()) return;
    const auto one = left.size() == 1;
    auto text = one ? QString("Una casilla se ha quedado como estaba:\n\n")
                    : QString("%1 casillas se han quedado como estaban:\n\n").arg(left.size());
    text += left.mid(0, kLinesInMessage).join('\n');
    const auto more = left.size() - kLinesInMessage;
    if (more > 0) text += QStringLiteral("\n... y %1 más, que están en los detalles.").arg(more);
    Window().FrontEnd().Message(MessageIcon::Information, title, text,
                                more > 0 ? left.mid(0, kLinesInDetails).join('\n') : QString());
  });
  if (!chosen.isEmpty() && chosen.isValid()) table_->Choose(chosen);
}

bool RetivoView::TakesKey(const QKeyEvent& key) {
  if (key.modifiers() & Qt::ControlModifier &&
      (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab)) {
    table_->Leave(key.key() == Qt::Key_Tab);
    return true;
  }
  if (TakesCommand(key) || TakesArrow(key)) return true;
  if (key.key() == Qt::Key_Escape) return table_->ChooseNothing();
  const auto cell = table_->currentIndex();
  if (IsEnter(key) && cell.isValid()) {
    MoveBy((key.modifiers() & Qt::ShiftModifier) != 0 ? -1 : 1);
    return true;
  }
  if (!Opens(cell)) return false;
  if (key.key() == Qt::Key_F2) {
    Open(cell, {});
    return true;
  }
  const auto text = key.text();
  const auto typing = !text.isEmpty() && text.front().isPrint() &&
                      (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  if (typing) Open(cell, text.trimmed());
  return typing;
}

bool RetivoView::TakesCommand(const QKeyEvent& key) {
  switch (CommandOf(key)) {
    case GridCommand::None:
      return false;
    case GridCommand::Copy:
      table_->Copy();
      return true;
    case GridCommand::Paste:
      Paste();
      return true;
    case GridCommand::FillDown:
      FillDown();
      return true;
    case GridCommand::Clear:
      Clear();
      return true;
  }
  return false;
}

bool RetivoView::TakesArrow(const QKeyEvent& key) {
  if (!KeepsKey(key)) return false;
  table_->Arrow(static_cast<Qt::Key>(key.key()), (key.modifiers() & Qt::ShiftModifier) != 0);
  return true;
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
    table_->GoTo(next);
    return true;
  }
  if (!AnyOpens()) return false;
  // Beyond the last cell are the buttons, where the next key of who looks at his papers would save
  // or drop all of it.
  QApplication::beep();
  return true;
}

bool RetivoView::AnyOpens() const {
  const auto* const cells = table_->model();
  for (int column = 0; cells->rowCount() > 0 && column < cells->columnCount(); ++column)
    if (Opens(cells->index(0, column))) return true;
  return false;
}

}  // namespace quorvane::qt
