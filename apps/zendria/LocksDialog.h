#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <functional>
#include <vector>

#include "apps/escuela/LockList.h"

namespace quorvane::zendria {

class ColumnsInSight;

/// Who has a grade form open, and which subjects it holds; what a form that died has left can be
/// removed, behind a question. A failed statement is told to the user.
class LocksDialog : public QDialog {
 public:
  /// `school` is open and outlives the dialog.
  explicit LocksDialog(Connection& school, QWidget* parent = nullptr);

  /// Asked whether that publication is of a screen that this very program has open, which would go
  /// on without its locks; such a one isn't removed.
  std::function<bool(int publication)> IsOpenHere;
  /// Told of each publication that has been removed.
  std::function<void(int publication)> Removed;

  [[nodiscard]] QTreeWidget& List() { return list_; }
  [[nodiscard]] QPushButton& RemoveButton() { return remove_; }

 private:
  void Read();
  void Fill();
  void RemoveSelected();
  [[nodiscard]] const LockList::Publication* Selected() const;

  LockList locks_;
  std::vector<LockList::Publication> publications_;
  QLabel count_;
  QTreeWidget list_;
  ColumnsInSight* columns_ = nullptr;
  QPushButton remove_;
};

}  // namespace quorvane::zendria
