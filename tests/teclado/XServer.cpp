#include "tests/teclado/XServer.h"

#include <QDir>
#include <QLockFile>
#include <csignal>
#include <stdexcept>
#include <sys/prctl.h>

namespace quorvane::test {
namespace {

constexpr int kServerPatience = 20000;  // milliseconds

void Start(QProcess& process, const QString& program, const QStringList& arguments) {
  process.setStandardErrorFile(QProcess::nullDevice());
  // Tests that are broken off leave no server behind.
  process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
  process.start(program, arguments);
  if (!process.waitForStarted(kServerPatience))
    throw std::runtime_error(program.toStdString() + " can't be started");
}

void End(QProcess& process) {
  if (process.state() == QProcess::NotRunning) return;
  process.terminate();
  if (process.waitForFinished(kServerPatience)) return;
  process.kill();
  process.waitForFinished();
}

}  // namespace

XServer::XServer(bool managed) {
  // Two servers that look for a free display at once may choose the same.
  QLockFile turn(QDir::temp().filePath("quorvane-xvfb.turno"));
  turn.lock();
  Start(server_, "Xvfb",
        {"-displayfd", "1", "-screen", "0", "1366x768x24", "-nolisten", "tcp", "-noreset"});
  // The server chooses a free display and says which when it is ready.
  while (!server_.canReadLine())
    if (!server_.waitForReadyRead(kServerPatience)) throw std::runtime_error("Xvfb doesn't answer");
  display_ = ":" + server_.readLine().trimmed().toStdString();
  turn.unlock();
  if (!managed) return;
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DISPLAY", QString::fromStdString(display_));
  manager_.setProcessEnvironment(environment);
  Start(manager_, "openbox", {"--sm-disable"});
}

XServer::~XServer() {
  End(manager_);
  End(server_);
}

}  // namespace quorvane::test
