#include "adapters/qt/window/LateKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace quorvane::qt {

LateKeys::LateKeys(std::function<QWidget*()> current) : current_(std::move(current)) {
  qApp->installEventFilter(this);
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
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
  const auto* const window = qobject_cast<QWindow*>(watched);
  return window != nullptr && SendOn(*window, *static_cast<QKeyEvent*>(event));
}

}  // namespace quorvane::qt
