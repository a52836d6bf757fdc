#include "apps/zendria/ModalKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace quorvane::zendria {

ModalKeys::ModalKeys() { qApp->installEventFilter(this); }

void ModalKeys::Add(const QKeySequence& key, std::function<bool(QWidget& modal)> act) {
  keys_.push_back({key, std::move(act)});
}

bool ModalKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  auto* const modal = QApplication::activeModalWidget();
  if (modal == nullptr || static_cast<QWidget*>(watched)->window() != modal) return false;
  const QKeySequence pressed(static_cast<QKeyEvent*>(event)->keyCombination());
  const auto found = std::find_if(keys_.begin(), keys_.end(),
                                  [&pressed](const Key& key) { return key.key == pressed; });
  return found != keys_.end() && found->act(*modal);
}

}  // namespace quorvane::zendria
