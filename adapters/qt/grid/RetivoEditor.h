#pragma once

#include <QFrame>
#include <QSize>
#include <QString>
#include <functional>
#include <vector>

class QKeyEvent;
class QLabel;
class QLineEdit;
class QListWidget;

namespace quorvane::qt {

/// The list that a cell opens: what is typed narrows it, Enter, Tab or a click on an entry chooses,
/// Esc gives it up. What a key does with the grid's cells it does until something is typed. One for
/// all cells of a table, and owned by the window that it lies over.
///
/// It is a part of that window and no window of its own: there is one keyboard, and which key finds
/// the list open is decided by the order of the keys alone, however fast they come.
class RetivoEditor : public QFrame {
 public:
  /// `table` gets the keyboard back when the list has closed; it outlives the list.
  RetivoEditor(QWidget& window, QWidget& table);

  /// A line of the list: an entry and its place in what was handed to `Open`.
  struct Entry {
    QString text;
    int place = 0;
  };

  /// What the user does after choosing.
  enum class Then { Stay, Next, Previous, Down, Up };

  /// Opens below the cell, or above where there is more room, with the entry chosen that the cell
  /// stands for, by its place (-1 for none), and narrowed by what has been typed already. Numbers
  /// stand by value, in whatever order they come; what equals the typed text comes first.
  void Open(const std::vector<QString>& entries, int stands, const QString& typed);
  [[nodiscard]] bool IsOpen() const noexcept { return open_; }

  /// The user goes elsewhere, by the mouse or to another window. What he has typed chooses the
  /// entry that it marks; without that the cell stays as it was. False when what he has typed fits
  /// no entry: the list then stays open and says so.
  bool Leave();
  /// Closes and leaves the cell as it was.
  void GiveUp();
  /// Lies at the cell again, wherever that is now.
  void Follow();

  /// Where the edited cell is in the window. Asked while the list is open.
  std::function<QRect()> Cell;
  /// The entry's place in the list that was handed to `Open`. Called after the list has closed.
  std::function<void(int entry, Then then)> Chosen;
  /// Tab or Enter with nothing marked and nothing typed: nothing is chosen, but the user goes on.
  std::function<void(Then then)> LeftAlone;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Narrow(const QString& typed);
  /// The line of the entry of that place; -1 for none.
  [[nodiscard]] int RowOf(int place) const;
  /// The place of the marked entry; -1 for none.
  [[nodiscard]] int Marked() const;
  [[nodiscard]] bool FitsNothing() const;
  void Refuse();
  void ShowRefusal(bool refused);
  void Close(Qt::FocusReason reason);
  void Choose(Then then);
  bool TakesKey(const QKeyEvent& key);
  bool HandsOn(const QKeyEvent& key);
  void MoveBy(int rows);
  void LeaveByFocus(Qt::FocusReason reason);

  QWidget& table_;
  QLineEdit* filter_;
  QListWidget* list_;
  QLabel* refusal_;
  std::vector<Entry> entries_;
  QSize entrySize_;  // of the widest, whatever is left of them
  int stands_ = -1;  // the place of the entry that the cell stands for
  bool open_ = false;
};

}  // namespace quorvane::qt
