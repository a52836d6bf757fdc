#pragma once

#include <QKeySequence>
#include <QObject>
#include <functional>
#include <vector>

class QWidget;

namespace quorvane::zendria {

/// Keys of the main window's menus that work as well in the window which stands before it, where Qt
/// lets no menu be reached. Made after the `QApplication`.
class ModalKeys : public QObject {
 public:
  ModalKeys();

  /// Calls `act` for that key pressed in a window before which all else waits, when nothing in it
  /// has a use for the key; `act` tells whether it had one there.
  void Add(const QKeySequence& key, std::function<bool(QWidget& modal)> act);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Key {
    QKeySequence key;
    std::function<bool(QWidget&)> act;
  };

  std::vector<Key> keys_;
};

}  // namespace quorvane::zendria
