#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <vector>

class QAbstractItemView;
class QMenu;

namespace quorvane {
class Control;
}

namespace quorvane::qt {

class FormWindow;

/// What the right button and the menu key open on a grid or a list: what the view itself offers,
/// and below it what the host adds (`QtFrontEnd::GridMenuOpening`). Filled anew each time, so that
/// what can't be done now stands there in grey. Without any entry no menu opens.
class GridMenu : public QObject {
 public:
  struct Entry {
    QString text;
    QString keys;                    // what does the same, as it is shown beside; empty for none
    std::function<void()> act;       // run from the event loop, outside of any gesture
    std::function<bool()> possible;  // empty when it always is
  };

  /// A child of the view, which shows that control of the window's form.
  GridMenu(FormWindow& window, const Control& control, QAbstractItemView& view);

  /// One more entry, below those that stand.
  void Add(Entry entry) { entries_.push_back(std::move(entry)); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Open(QPoint at);

  FormWindow& window_;
  const Control& control_;
  QAbstractItemView& view_;
  // Kept: what an entry does runs inside the menu's own event, and may let the screen be painted.
  QMenu* menu_;  // the view's
  std::vector<Entry> entries_;
};

}  // namespace quorvane::qt
