#include "adapters/qt/grid/CellEdits.h"

#include <algorithm>

#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"

namespace quorvane::qt {
namespace {

constexpr qint64 kShowEvery = 100;  // milliseconds

/// What two texts have to have in common.
QString Core(const QString& text) {
  QString core;
  for (const auto letter : text)
    if (!letter.isSpace()) core += letter.toCaseFolded();
  return core;
}

int EntryOf(const std::vector<Retivo::ListEntry>& list, const QString& text) {
  const auto wanted = Core(text);
  const auto found = std::find_if(list.begin(), list.end(), [&wanted](const auto& entry) {
    return Core(Text(entry.text)) == wanted;
  });
  return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

}  // namespace

void CellEdits::End(int entry) {
  const auto& list = retivo_.Lista(retivo_.Col());
  const auto text = entry < 0 || entry >= static_cast<int>(list.size())
                        ? QString()
                        : Text(list[static_cast<std::size_t>(entry)].text);
  const auto before = Text(retivo_.TextMatrix(retivo_.Row(), retivo_.Col()));
  const auto& told = window_.FrontEnd().EditEnding;
  if (told) told(window_.Model(), retivo_, entry);
  retivo_.EndEdit(entry);
  if (text.trimmed() != before.trimmed()) window_.MarkChanged();
}

bool CellEdits::OnGrid(const CellText& cell) const {
  return cell.row >= 0 && cell.row + retivo_.FixedRows() < retivo_.Rows() && cell.column >= 0 &&
         cell.column < retivo_.Cols();
}

bool CellEdits::Editable(const CellText& cell) const {
  return retivo_.EditsThroughList(cell.column) && Pixels(retivo_.ColWidth(cell.column)) > 0;
}

QString CellEdits::Shown(int row, int column) const {
  return LineText(retivo_.TextMatrix(row, column));
}

QString CellEdits::Line(const CellText& cell, const QString& why) const {
  auto place = QStringLiteral("Fila %1").arg(cell.row + 1);
  const auto row = cell.row + retivo_.FixedRows();
  if (row < retivo_.Rows() && cell.column != 0)
    place += QStringLiteral(" (%1)").arg(Shown(row, 0).trimmed());
  if (cell.column >= 0 && cell.column < retivo_.Cols() && retivo_.FixedRows() > 0)
    place += QStringLiteral(", columna «%1»").arg(Shown(0, cell.column).trimmed());
  return QStringLiteral("%1: «%2» %3").arg(place, cell.text.trimmed(), why);
}

std::optional<QString> CellEdits::PutOne(const CellText& cell) {
  const auto row = cell.row + retivo_.FixedRows();
  const auto empty = Core(cell.text).isEmpty();
  if (!OnGrid(cell))
    return empty ? std::nullopt : std::optional(QStringLiteral("queda fuera de la tabla."));
  const auto same = Core(Shown(row, cell.column)) == Core(cell.text);
  if (same && (empty || !Editable(cell))) return std::nullopt;
  if (!Editable(cell)) return QStringLiteral("no se puede poner en esa casilla.");
  retivo_.BeginEdit(row, cell.column);
  if (!Goes() || !OnGrid(cell)) return std::nullopt;
  // What the edit has hidden or closed is no cell to put anything into.
  const auto& list = retivo_.Lista(cell.column);
  if (list.empty() || !Editable(cell)) return QStringLiteral("no se puede poner en esa casilla.");
  const auto entry = EntryOf(list, cell.text);
  if (entry < 0)
    return empty ? QStringLiteral("no se puede dejar en blanco.")
                 : QStringLiteral("no está en la lista de esa casilla.");
  End(entry);
  return std::nullopt;
}

bool CellEdits::Goes() const {
  return !window_.FrontEnd().Leaving() && window_.Model().Visible() && retivo_.Usable();
}

void CellEdits::ShowProgress() {
  auto& frontEnd = window_.FrontEnd();
  frontEnd.Pulse();
  if (sinceShown_.elapsed() < kShowEvery) return;
  frontEnd.DoEvents();
  sinceShown_.restart();
}

QStringList CellEdits::Put(const std::vector<CellText>& cells) {
  QStringList left;
  const auto row = retivo_.Row();
  const auto column = retivo_.Col();
  sinceShown_.start();
  for (const auto& cell : cells) {
    if (!Goes()) return left;
    if (const auto why = PutOne(cell)) left.push_back(Line(cell, *why));
    ShowProgress();
  }
  if (Goes() && row < retivo_.Rows() && column < retivo_.Cols()) {
    retivo_.Row(row);
    retivo_.Col(column);
  }
  return left;
}

}  // namespace quorvane::qt
