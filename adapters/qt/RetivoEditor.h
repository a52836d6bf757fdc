#pragma once

#include <QFrame>
#include <functional>
#include <vector>

class QLineEdit;
class QListWidget;

namespace quorvane::qt {

/// The list that a cell opens: what is typed narrows it, Enter or a click chooses, Esc or a click
/// elsewhere gives it up. One for all cells of a grid, owned by the grid's table.
class RetivoEditor : public QFrame {
 public:
  explicit RetivoEditor(QWidget* table);

  /// What the user does after choosing.
  enum class Then { Stay, Next, Previous };

  /// Opens below the cell (above where the screen ends) with the entry chosen whose text the cell
  /// shows, and narrowed by what has been typed already.
  void Open(const QRect& cell, const std::vector<QString>& entries, const QString& shown,
            const QString& typed);

  /// The entry's place in the list that was handed to `Open`. Called after the list has closed.
  std::function<void(int entry, Then then)> Chosen;
  /// Tab without an entry to choose: nothing is chosen, but the user goes on.
  std::function<void(Then then)> LeftAlone;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Narrow(const QString& typed);
  void Place(const QRect& cell);
  void Choose(Then then);
  bool TakesKey(int key);
  void MoveBy(int rows);

  QLineEdit* filter_;
  QListWidget* list_;
  int shown_ = -1;  // the entry that the cell shows
};

}  // namespace quorvane::qt
