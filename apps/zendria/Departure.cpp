#include "apps/zendria/Departure.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

#include "adapters/qt/window/QtFrontEnd.h"

namespace quorvane::zendria {

Departure::Departure(qt::QtFrontEnd& screen)
    : screen_(screen), signals_([this](int signal) { Arrived(signal); }) {
  qApp->installEventFilter(this);
  // Others may still call the log-out off: the forms stay until the desktop says that it is time.
  connect(qApp, &QGuiApplication::commitDataRequest, this, [](QSessionManager& session) {
    // Somebody has to sign in: the next session can't open this program by itself.
    session.setRestartHint(QSessionManager::RestartNever);
  });
}

void Departure::Leave() {
  if (screen_.Leaving()) return;
  screen_.Leave();
  // Ends every loop that runs, those of dialogs too, and lets none begin.
  QCoreApplication::exit();
}

bool Departure::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Quit || watched != qApp) return false;
  Leave();
  return true;
}

void Departure::Arrived(int signal) {
  if (!screen_.Leaving()) signal_ = signal;
  Leave();
}

}  // namespace quorvane::zendria
