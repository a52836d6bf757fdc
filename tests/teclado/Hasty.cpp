#include "tests/teclado/Hasty.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>
#include <QWidget>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace quorvane::test {
namespace {

constexpr int kSettled = 150;  // milliseconds after the last gesture

}  // namespace

void Hasty::Run(const QStringList& arguments, const Next& next) {
  auto* const hands = new QProcess;
  QObject::connect(hands, &QProcess::finished, hands, [hands, next](int status) {
    EXPECT_EQ(status, 0) << hands->readAllStandardError().toStdString();
    hands->deleteLater();
    QTimer::singleShot(kSettled, next);
  });
  hands->start("xdotool", arguments);
}

void Hasty::Type(const QStringList& keys, int apart, const Next& next) {
  Run(QStringList{"key", "--delay", QString::number(apart)} + keys, next);
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
  Run(arguments, next);
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
