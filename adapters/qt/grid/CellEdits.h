#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/controls/Retivo.h"

namespace quorvane::qt {

class FormWindow;

/// A text for a cell. Rows count from 0 below the headings; a row or column that the grid doesn't
/// have is off the grid.
struct CellText {
  int row = 0;
  int column = 0;
  QString text;
  /// The item data of the entry that is meant, where that is known: two entries may have one text.
  /// 0 is what a blank entry stands for.
  std::optional<std::int32_t> data{};
};

/// The edits of a grid's cells, each begun and ended as the user does it: the form and the host
/// can't tell one that is pasted from one that is typed. To be used inside a gesture.
class CellEdits {
 public:
  /// Both outlive this.
  CellEdits(FormWindow& window, Retivo& retivo) : window_(window), retivo_(retivo) {}

  /// Ends the edit of the current cell with that entry of its list. The host hears of it first.
  void End(int entry);

  /// Edits one cell after the other and picks the entry of the given data, or whose text is the
  /// given one, but for case and blanks; for accents too where that leaves no doubt and the form
  /// shows the text so. A cell that
  /// shows the text already is no cell to edit, unless other data is known to stand behind it. The
  /// screen follows while that goes on. Stops where the form has gone, or the program is to end.
  /// The current cell is then the one that it was.
  ///
  /// Gives back a line, for the user, for each text that was not put in and whose cell has been
  /// left as it was.
  QStringList Put(const std::vector<CellText>& cells);

  /// What the form has stored for that cell (`QtFrontEnd::StoredData`), its row counted as above.
  [[nodiscard]] std::optional<std::int32_t> Stored(int row, int column) const;

 private:
  /// Why the text was not put in; none when it was.
  std::optional<QString> PutOne(const CellText& cell);
  [[nodiscard]] bool OnGrid(const CellText& cell) const;
  /// The cell shows that text, but for case and blanks.
  [[nodiscard]] bool Shows(const CellText& cell) const;
  /// Some cell of its column shows it.
  [[nodiscard]] bool InColumn(const CellText& cell) const;
  /// The cell is already as it would be made.
  [[nodiscard]] bool Stands(const CellText& cell) const;
  [[nodiscard]] bool Editable(const CellText& cell) const;
  [[nodiscard]] QString Shown(int row, int column) const;
  /// The number, from 1, that a user counts for a column behind the last one.
  [[nodiscard]] int NumberInSight(int column) const;
  [[nodiscard]] QString Line(const CellText& cell, const QString& why) const;
  [[nodiscard]] bool Goes() const;
  void ShowProgress();

  FormWindow& window_;
  Retivo& retivo_;
  QElapsedTimer sinceShown_;
};

}  // namespace quorvane::qt
