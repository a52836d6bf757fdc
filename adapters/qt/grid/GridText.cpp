#include "adapters/qt/grid/GridText.h"

#include <QHeaderView>
#include <QItemSelectionRange>
#include <QTableView>
#include <utility>

namespace quorvane::qt {
namespace {

constexpr QChar kQuote = '"';

bool EndsCell(QChar letter) { return letter == '\t' || letter == '\n'; }

/// Where the cell that begins there with a quotation mark ends; -1 when it is no quoted one.
qsizetype EndOfQuoted(const QString& text, qsizetype from, QString& cell) {
  for (auto at = from + 1; at < text.size(); ++at) {
    if (text[at] != kQuote) {
      cell += text[at];
      continue;
    }
    if (at + 1 == text.size() || EndsCell(text[at + 1])) return at + 1;
    if (text[at + 1] != kQuote) return -1;
    cell += text[at++];
  }
  return -1;
}

/// The cell that begins there, which is moved behind it.
QString TakeCell(const QString& text, qsizetype& at) {
  QString quoted;
  if (at < text.size() && text[at] == kQuote) {
    if (const auto end = EndOfQuoted(text, at, quoted); end >= 0) {
      at = end;
      return quoted;
    }
  }
  const auto from = at;
  while (at < text.size() && !EndsCell(text[at])) ++at;
  return text.mid(from, at - from);
}

QString Quoted(QString cell) {
  const auto plain = !cell.contains('\t') && !cell.contains('\n') && !cell.contains(kQuote);
  if (plain) return cell;
  return kQuote + cell.replace(kQuote, QStringLiteral("\"\"")) + kQuote;
}

std::vector<QString> Headings(const QTableView& table) {
  std::vector<QString> headings;
  for (int column = 0; column < table.model()->columnCount(); ++column)
    if (!table.isColumnHidden(column))
      headings.push_back(table.model()->headerData(column, Qt::Horizontal).toString());
  return headings;
}

}  // namespace

TextRows RowsOfText(const QString& text) {
  auto lines = text;
  lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace('\r', '\n');
  TextRows rows;
  for (qsizetype at = 0; at < lines.size(); ++at) {
    rows.push_back({TakeCell(lines, at)});
    while (at < lines.size() && lines[at] == '\t') rows.back().push_back(TakeCell(lines, ++at));
  }
  return rows;
}

QString TextOfRows(const TextRows& rows) {
  QString text;
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i > 0 ? "\t" : "") + Quoted(row[i]);
    text += '\n';
  }
  return text;
}

TextRows RowsOf(const QTableView& table, const QItemSelectionRange& part) {
  TextRows rows;
  for (auto row = part.top(); row <= part.bottom(); ++row) {
    rows.emplace_back();
    for (auto column = part.left(); column <= part.right(); ++column)
      if (!table.isColumnHidden(column))
        rows.back().push_back(table.model()->index(row, column).data().toString());
  }
  return rows;
}

TextRows RowsOf(const QTableView& table) {
  TextRows rows;
  if (!table.horizontalHeader()->isHidden()) rows.push_back(Headings(table));
  const auto* const cells = table.model();
  if (cells->rowCount() == 0 || cells->columnCount() == 0) return rows;
  auto below = RowsOf(
      table, {cells->index(0, 0), cells->index(cells->rowCount() - 1, cells->columnCount() - 1)});
  for (auto& row : below) rows.push_back(std::move(row));
  return rows;
}

}  // namespace quorvane::qt
