#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <unistd.h>
#include <utility>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/Prng.h"
#include "frame/cAsignarDatos.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstances.h"
#include "tests/kills/Report.h"
#include "tests/walk/History.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/RandomUser.h"
#include "tests/walk/Statement.h"

namespace quorvane::test {

/// A victim's connection: tells of each statement before and after it, at once.
class ReportingConnection : public Connection {
 public:
  /// `in` is the pipe's. With a fault, now and then a statement is told and not executed.
  ReportingConnection(const std::string& path, std::string name, int in, bool fault)
      : Connection(std::move(name)), engine_(path, ""), in_(in), fault_(fault) {}

  void Open() override { engine_.Open(); }
  void Close() override { engine_.Close(); }
  [[nodiscard]] bool IsOpen() const override { return engine_.IsOpen(); }
  [[nodiscard]] std::string DataSource() const override { return engine_.DataSource(); }

 protected:
  Recordset Run(const std::string& statement) override {
    constexpr int kEachFault = 7;
    const auto reads = Reads(statement);
    Tell(reads ? std::string(1, kBeginsToRead) : kBeginsToWrite + statement);
    const auto swallowed = fault_ && !reads && ++writes_ % kEachFault == 0;
    try {
      auto rows = swallowed ? Recordset() : engine_.Execute(statement);
      Tell(std::string(1, kReturned));
      return rows;
    } catch (const RuntimeError&) {
      Tell(std::string(1, kFailed));
      throw;
    }
  }

 private:
  void Tell(std::string line) const {
    line += '\n';
    // A pipe takes a line of this length whole or not at all.
    if (write(in_, line.data(), line.size()) != static_cast<ssize_t>(line.size())) _exit(1);
  }

  sqlite::SqliteConnection engine_;
  int in_;
  bool fault_;
  int writes_ = 0;
};

/// Does that in a process of its own, until it is killed.
[[noreturn]] inline void UntilKilled(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception& failure) {
    std::cerr << "kills: " << failure.what() << std::endl;
  }
  _exit(1);
}

/// Somebody at random on all screens of that school, who tells of each statement and goes on.
[[noreturn]] inline void BeVictim(const std::string& school, std::uint64_t seed, int in,
                                  bool fault) {
  // All but the first user of the sample school, who looks after it afterwards.
  constexpr int kFirstUser = 2;
  constexpr std::size_t kUsers = 7;
  constexpr int kRegisterNode = 123;
  constexpr std::size_t kNodes = 5;
  UntilKilled([&] {
    Prng random(seed);
    History history;
    RandomUser user(random, history);
    RandomHost host(random);
    ReportingConnection centro(school, "centro", in, fault);
    ReportingConnection borrado(school, "borrado", in, fault);
    ReportingConnection entrada(school, "entrada", in, fault);
    for (auto* const connection : {&centro, &borrado, &entrada}) connection->Open();
    for (;;) {
      host.SignIn({centro, borrado, entrada}, kFirstUser + static_cast<int>(random.Below(kUsers)));
      try {
        cAsignarDatos().ActivarFormulario(
            static_cast<std::uint8_t>(kRegisterNode + static_cast<int>(random.Below(kNodes))));
      } catch (const RuntimeError&) {
        FormInstances::DropAll();
      }
    }
  });
}

/// Holds the school open without doing anything: another user's program.
[[noreturn]] inline void BeBystander(const std::string& school, int in) {
  UntilKilled([&] {
    sqlite::SqliteConnection connection(school, "");
    connection.Open();
    connection.Execute("SELECT COUNT(*) FROM Alumno");
    const char ready[] = {kReturned, '\n'};
    static_cast<void>(!write(in, ready, sizeof ready));
    for (;;) pause();
  });
}

}  // namespace quorvane::test
