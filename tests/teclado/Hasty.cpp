#include "tests/teclado/Hasty.h"

#include <QProcess>
#include <QWidget>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "tests/teclado/Rest.h"

namespace quorvane::test {
namespace {

/// Keys that are let go: of "Shift+Tab" two.
int Gestures(const QStringList& keys) {
  auto gestures = 0;
  for (const auto& key : keys) gestures += static_cast<int>(key.count('+')) + 1;
  return gestures;
}

}  // namespace

void Hasty::Run(const QStringList& arguments, int gestures, const Next& next) {
  auto* const hands = new QProcess;
  auto* const rest = new Rest(gestures);
  QObject::connect(hands, &QProcess::finished, hands, [hands, rest, next](int status) {
    EXPECT_EQ(status, 0) << hands->readAllStandardError().toStdString();
    hands->deleteLater();
    rest->Then(next);
  });
  hands->start("xdotool", arguments);
}

void Hasty::Type(const QStringList& keys, int apart, const Next& next) {
  Run(QStringList{"key", "--delay", QString::number(apart)} + keys, Gestures(keys), next);
}

void Hasty::TypeWithCare(const QStringList& keys, const Next& next) {
  if (keys.isEmpty()) return next();
  Type({keys.first()}, 0, [rest = keys.mid(1), next] { TypeWithCare(rest, next); });
}

void Hasty::TypeAndClick(const QStringList& keys, int apart, const QWidget& widget, QPoint at,
                         const Next& next) {
  const auto where = widget.mapToGlobal(at);
  QStringList arguments;
  if (!keys.isEmpty())
    arguments << "key"
              << "--delay" << QString::number(apart) << keys;
  arguments << "mousemove" << QString::number(where.x()) << QString::number(where.y()) << "click"
            << "1";
  Run(arguments, Gestures(keys) + 1, next);
}

BusyMachine::BusyMachine() {
  for (unsigned i = 0; i < 2 * std::thread::hardware_concurrency(); ++i) {
    const auto process = fork();
    if (process == 0) {
      alarm(300);  // whatever happens to the test
      execlp("sh", "sh", "-c", "while :; do :; done", nullptr);
      _exit(1);
    }
    processes_.push_back(process);
  }
}

BusyMachine::~BusyMachine() {
  for (const auto process : processes_) {
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
  }
}

}  // namespace quorvane::test
