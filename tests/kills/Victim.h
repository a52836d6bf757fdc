#pragma once

#include <cstdint>
#include <iostream>
#include <limits>
#include <string>
#include <unistd.h>

#include "frame/cAsignarDatos.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstances.h"
#include "tests/kills/Report.h"
#include "tests/kills/ReportingConnection.h"
#include "tests/walk/History.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/RandomUser.h"

namespace quorvane::test {

class Nobody : public Onlooker {
 public:
  void Opened(Form& /*form*/) override {}
  void Accepting(const Form& /*form*/) override {}
  void Settle() override {}
};

/// All but the first user of the sample school, who looks after it afterwards.
inline constexpr int kFirstUser = 2;
inline constexpr std::size_t kUsers = 7;
inline constexpr int kRegisterNode = 123;
inline constexpr std::size_t kNodes = 5;

[[noreturn]] inline void Play(const std::string& school, std::uint64_t seed, int in, bool fault) {
  Prng random(seed);
  History history;
  Nobody nobody;
  RandomUser user(random, history);
  user.UseOnlooker(nobody);
  user.Limit(std::numeric_limits<std::uint64_t>::max());
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
}

/// Somebody at random on all screens of that school, who tells of each statement and goes on until
/// he is killed. To be called in a process of its own.
[[noreturn]] inline void BeVictim(const std::string& school, std::uint64_t seed, int in,
                                  bool fault) {
  try {
    Play(school, seed, in, fault);
  } catch (const std::exception& failure) {
    std::cerr << "kills: " << failure.what() << std::endl;
    _exit(1);
  }
}

/// Holds the school open without doing anything, until it is killed: another user's program.
[[noreturn]] inline void BeBystander(const std::string& school, int in) {
  try {
    sqlite::SqliteConnection connection(school, "");
    connection.Open();
    connection.Execute("SELECT COUNT(*) FROM Alumno");
    const char ready[] = {kReturned, '\n'};
    static_cast<void>(!write(in, ready, sizeof ready));
    for (;;) pause();
  } catch (const std::exception& failure) {
    std::cerr << "kills: " << failure.what() << std::endl;
    _exit(1);
  }
}

}  // namespace quorvane::test
