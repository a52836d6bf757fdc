#pragma once

#include <QString>
#include <vector>

class QItemSelectionRange;
class QTableView;

namespace quorvane::qt {

// Cells as spreadsheets hand them on: a line for each row, a tab between two cells. A cell with a
// tab, a line break or a quotation mark stands in quotation marks, those inside it doubled.

using TextRows = std::vector<std::vector<QString>>;

/// The end of the last line makes no row of its own.
TextRows RowsOfText(const QString& text);
QString TextOfRows(const TextRows& rows);

/// The cells in sight of a part of a table; hidden columns hold keys that are nobody's affair.
TextRows RowsOf(const QTableView& table, const QItemSelectionRange& part);
/// All cells in sight, below their headings where the table has any.
TextRows RowsOf(const QTableView& table);

}  // namespace quorvane::qt
