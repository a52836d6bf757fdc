#include "adapters/qt/LateKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace quorvane::qt {

LateKeys::LateKeys(std::function<QWidget*()> current) : current_(std::move(current)) {
  qApp->installEventFilter(this);
}

bool LateKeys::TakenByClosing(int key) {
  // A list is asked about a key before it gets it, and may close at once.
  const auto offered = std::exchange(offered_, 0);
  return offered == key && QApplication::activePopupWidget() == nullptr;
}

bool LateKeys::SendOn(const QWindow& window, const QKeyEvent& key) {
  if (window.isVisible()) return false;
  auto* const modal = QApplication::activeModalWidget();
  const auto* const target = modal != nullptr ? modal : current_();
  if (target == nullptr || target->windowHandle() == nullptr || !target->isVisible()) return false;
  QKeyEvent again(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat(),
                  static_cast<quint16>(key.count()));
  QCoreApplication::sendEvent(target->windowHandle(), &again);
  return true;
}

bool LateKeys::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::ShortcutOverride && QApplication::activePopupWidget() != nullptr)
    offered_ = static_cast<QKeyEvent*>(event)->key();
  if (type != QEvent::KeyPress && type != QEvent::KeyRelease) return false;
  const auto* const window = qobject_cast<QWindow*>(watched);
  if (window == nullptr) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (type == QEvent::KeyPress && TakenByClosing(key.key())) return true;
  return SendOn(*window, key);
}

}  // namespace quorvane::qt
