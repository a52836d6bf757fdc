#pragma once

#include <QFrame>
#include <QTabBar>
#include <QWidget>

namespace quorvane::qt {

/// A row of tabs above an empty pane.
class TabStripBox : public QWidget {
 public:
  explicit TabStripBox(QWidget* parent);

  [[nodiscard]] QTabBar* Bar() const noexcept { return bar_; }
  /// What a layout puts the pages on.
  [[nodiscard]] QFrame* Pane() const noexcept { return pane_; }

 private:
  QTabBar* bar_;
  QFrame* pane_;
};

}  // namespace quorvane::qt
