#include "adapters/qt/grid/CellEdits.h"

#include <algorithm>
#include <cstddef>
#include <utility>

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

/// The same of a text whose accents don't count.
QString Plain(const QString& text) {
  auto letters = Core(text).normalized(QString::NormalizationForm_D);
  letters.removeIf([](QChar letter) { return letter.category() == QChar::Mark_NonSpacing; });
  return letters;
}

using Entries = std::vector<Retivo::ListEntry>;

/// The first entry of which that holds, and how many there are; -1 for none.
template <typename Holds>
std::pair<int, std::ptrdiff_t> FirstOf(const Entries& list, const Holds& holds) {
  const auto found = std::find_if(list.begin(), list.end(), holds);
  if (found == list.end()) return {-1, 0};
  return {static_cast<int>(found - list.begin()), std::count_if(found, list.end(), holds)};
}

/// `spelt` when the form itself shows that text: it may write an entry otherwise than its list
/// does.
int EntryOf(const Entries& list, const CellText& cell, bool spelt) {
  if (cell.data && *cell.data != 0) {
    const auto meant = FirstOf(list, [&](const auto& entry) { return entry.data == *cell.data; });
    if (meant.first >= 0) return meant.first;
  }
  const auto core = Core(cell.text);
  const auto same =
      FirstOf(list, [&core](const auto& entry) { return Core(Text(entry.text)) == core; });
  if (same.first >= 0 || !spelt) return same.first;
  const auto plain = Plain(cell.text);
  const auto alike =
      FirstOf(list, [&plain](const auto& entry) { return Plain(Text(entry.text)) == plain; });
  return alike.second == 1 ? alike.first : -1;
}

}  // namespace

void CellEdits::End(int entry) {
  const auto& list = retivo_.Lista(retivo_.Col());
  const auto chosen = entry < 0 || entry >= static_cast<int>(list.size())
                          ? Retivo::ListEntry()
                          : list[static_cast<std::size_t>(entry)];
  const auto before = Text(retivo_.TextMatrix(retivo_.Row(), retivo_.Col()));
  const auto stored = Stored(retivo_.Row() - retivo_.FixedRows(), retivo_.Col());
  const auto& told = window_.FrontEnd().EditEnding;
  if (told) told(window_.Model(), retivo_, entry);
  retivo_.EndEdit(entry);
  const auto changed =
      stored ? *stored != chosen.data : before.trimmed() != Text(chosen.text).trimmed();
  if (changed) window_.MarkChanged();
}

std::optional<std::int32_t> CellEdits::Stored(int row, int column) const {
  const auto& stored = window_.FrontEnd().StoredData;
  if (!stored) return std::nullopt;
  return stored(window_.Model(), retivo_, row + retivo_.FixedRows(), column);
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

int CellEdits::NumberInSight(int column) const {
  auto number = column + 1;
  for (auto before = 0; before < retivo_.Cols(); ++before)
    if (Pixels(retivo_.ColWidth(before)) <= 0) --number;
  return number;
}

QString CellEdits::Line(const CellText& cell, const QString& why) const {
  auto place = QStringLiteral("Fila %1").arg(cell.row + 1);
  const auto row = cell.row + retivo_.FixedRows();
  if (row < retivo_.Rows() && cell.column != 0)
    place += QStringLiteral(" (%1)").arg(Shown(row, 0).trimmed());
  if (cell.column >= retivo_.Cols())
    place += QStringLiteral(", columna %1").arg(NumberInSight(cell.column));
  else if (cell.column >= 0 && retivo_.FixedRows() > 0)
    place += QStringLiteral(", columna «%1»").arg(Shown(0, cell.column).trimmed());
  return QStringLiteral("%1: «%2» %3").arg(place, cell.text.trimmed(), why);
}

bool CellEdits::Shows(const CellText& cell) const {
  return Core(Shown(cell.row + retivo_.FixedRows(), cell.column)) == Core(cell.text);
}

bool CellEdits::InColumn(const CellText& cell) const {
  auto other = cell;
  other.row = retivo_.Rows() - retivo_.FixedRows();
  while (--other.row >= 0)
    if (Shows(other)) return true;
  return false;
}

bool CellEdits::Stands(const CellText& cell) const {
  const auto same = Shows(cell);
  if (!cell.data || !Editable(cell)) return same;
  const auto stored = Stored(cell.row, cell.column);
  if (!stored) return same;
  // What isn't shown may stand behind a blank all the same.
  return *stored == *cell.data && (same || *cell.data != 0);
}

std::optional<QString> CellEdits::PutOne(const CellText& cell) {
  const auto empty = Core(cell.text).isEmpty();
  if (!OnGrid(cell))
    return empty ? std::nullopt : std::optional(QStringLiteral("queda fuera de la tabla."));
  if (Stands(cell)) return std::nullopt;
  if (!Editable(cell)) return QStringLiteral("no se puede poner en esa casilla.");
  const auto nothingToTell = empty && Shows(cell);
  const auto spelt = InColumn(cell);
  retivo_.BeginEdit(cell.row + retivo_.FixedRows(), cell.column);
  if (!Goes() || !OnGrid(cell)) return std::nullopt;
  // What the edit has hidden or closed is no cell to put anything into.
  const auto& list = retivo_.Lista(cell.column);
  const auto open = !list.empty() && Editable(cell);
  const auto entry = open ? EntryOf(list, cell, spelt) : -1;
  if (entry >= 0) {
    End(entry);
    return std::nullopt;
  }
  if (nothingToTell) return std::nullopt;
  if (!open) return QStringLiteral("no se puede poner en esa casilla.");
  return empty ? QStringLiteral("no se puede dejar en blanco.")
               : QStringLiteral("no está en la lista de esa casilla.");
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
