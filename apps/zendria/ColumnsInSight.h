#pragma once

#include <QObject>
#include <QSet>
#include <vector>

class QHelpEvent;
class QTreeWidget;

namespace quorvane::zendria {

/// Gives the columns of a list the width of their texts, but for those that the user has set, and
/// where there isn't room for all takes it from some of them: what is cut there ends in "…", and
/// tells the whole of itself under the mouse. Follows the list's own width.
class ColumnsInSight : public QObject {
 public:
  /// The list gets its headings before, and outlives this; `yielding` are the columns to cut.
  ColumnsInSight(QTreeWidget& list, std::vector<int> yielding);

  /// After the list's texts have changed.
  void Fit();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The widths of all columns, were there room.
  [[nodiscard]] std::vector<int> Wanted() const;
  /// False where nothing is cut, or the list tells something else there.
  [[nodiscard]] bool TellWhole(const QHelpEvent& help) const;

  QTreeWidget& list_;
  std::vector<int> yielding_;
  QSet<int> byHand_;
  bool fitting_ = false;
};

}  // namespace quorvane::zendria
