#include <cstdint>
#include <exception>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "apps/escuela/LockList.h"
#include "apps/escuela/NewSchool.h"
#include "apps/escuela/Prng.h"
#include "apps/escuela/SchoolAddress.h"
#include "frame/cAsignarDatos.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstances.h"
#include "tests/support/ServerRights.h"
#include "tests/support/TempFolder.h"
#include "tests/walk/Disturbance.h"
#include "tests/walk/History.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/RandomUser.h"
#include "tests/walk/School.h"
#include "tests/walk/Violation.h"
#include "tests/walk/WalkMain.h"
#include "tests/walk/WalkOptions.h"
#include "tests/walk/Watch.h"

namespace quorvane::test {
namespace {

constexpr const char* kUsage =
    R"(Uso: walk [--gestos N] [--semilla S] [--odbc CADENA --duena CADENA]

Abre las pantallas del módulo al azar, sobre escuelas al azar, y comprueba tras
cada formulario cerrado que no quedan publicaciones ni bloqueos suyos, que no se
ha perdido ni duplicado ninguna evaluación, y que tras un error vuelven a
abrirse todas las pantallas.

  --gestos N    cuántos gestos (100000)
  --semilla S   con qué números al azar (1)
  --odbc C      las escuelas, en una base de datos de PostgreSQL aún sin tablas, que
                quedan en ella; todo ha de ir como en un fichero, línea por línea
  --duena C     lo mismo, como quien hace las tablas
)";

/// Random gestures over all screens of the module, on one random school after the other. An error
/// is part of it: schools are odd and statements are made to fail. But then all forms are dropped,
/// what the dead one held is removed, and every screen has to open again.
class Walk {
 public:
  /// `history` outlives the walk.
  Walk(const WalkOptions& options, History& history)
      : options_(options),
        random_(options.seed),
        history_(history),
        user_(random_, history),
        host_(random_) {
    user_.Limit(options.gestures);
  }

  /// On schools in that database, both of whose connections outlive the walk.
  void OnServer(const ServerPlace& place) { place_.emplace(place); }
  /// What a statement leaves unordered comes as from a server.
  void OrderRows() noexcept { ordered_ = true; }

  /// Returns at its end, with everything as it should be. `Violation` when it isn't.
  void Run() {
    while (user_.Gestures() < options_.gestures) {
      if (user_.Gestures() >= nextSchool_) NewSchool();
      OpenScreen();
    }
  }

  /// What was done, for whoever reads the test's output.
  void Report(std::ostream& out) const {
    out << user_.Gestures() << " gestos, " << screens_ << " pantallas, " << schools_
        << " escuelas, hasta " << user_.Shown().Deepest() << " formularios uno sobre otro\n";
    for (const auto& [form, shows] : user_.Shown().Times())
      out << "  " << form << ": " << shows << '\n';
    out << "Errores:\n";
    for (const auto& [error, times] : errors_) out << "  " << times << " veces " << error << '\n';
  }

 private:
  static constexpr int kRegisterNode = 123;
  static constexpr int kLastNode = 127;
  static constexpr std::uint64_t kGesturesOfSchool = 400;

  static void Activate(int node) {
    cAsignarDatos().ActivarFormulario(static_cast<std::uint8_t>(node));
  }

  void NewSchool() {
    watch_.reset();
    school_ =
        place_ ? std::make_unique<School>(random_, *place_) : std::make_unique<School>(random_);
    if (ordered_) school_->OrderRows();
    school_->Executing = [this](const std::string& statement) { history_.Transcribe(statement); };
    watch_ = std::make_unique<Watch>(*school_);
    user_.UseOnlooker(*watch_);
    nextSchool_ = user_.Gestures() + kGesturesOfSchool;
    history_.Add("escuela " + std::to_string(++schools_));
  }

  void OpenScreen() {
    if (random_.Chance(25)) school_->Disturb(random_);
    constexpr std::size_t kUsers = 6;
    history_.Add(host_.SignIn(
        {school_->Centro(), school_->Borrado(), school_->Entrada(), school_->SqlServer()},
        static_cast<int>(1 + random_.Below(kUsers))));
    // Grade entry is the larger part of the module, and the register takes many gestures at a time.
    const auto node =
        kRegisterNode + static_cast<int>(random_.Below(kLastNode - kRegisterNode + 1));
    constexpr std::size_t kStatements = 250;
    const auto failure = random_.Chance(8) ? 1 + static_cast<int>(random_.Below(kStatements)) : 0;
    history_.Add("nodo " + std::to_string(node) +
                 (failure == 0 ? "" : " fallo " + std::to_string(failure)));
    school_->FailStatement(failure);
    watch_->Begin();
    ++screens_;
    try {
      Activate(node);
      watch_->End();
    } catch (const RuntimeError& error) {
      Recover(node, error);
    }
    school_->FailStatement(0);
  }

  void Recover(int node, const RuntimeError& error) {
    const auto number = std::to_string(error.Number());
    const auto text = number + " " + error.Description();
    history_.Note("error " + text);
    history_.Transcribe("error " + number);
    ++errors_[user_.Shown().LastForm() + " " + text];
    FormInstances::DropAll();
    school_->FailStatement(0);
    RemoveLeftovers();
    watch_->Failed(node == kRegisterNode);
    OpenAllScreens();
  }

  void RemoveLeftovers() {
    const auto known = watch_->Publications();
    LockList locks(school_->Unwatched());
    for (const auto& publication : locks.Read())
      if (publication.id < kLostPublication && !known.contains(std::to_string(publication.id)))
        locks.Remove(publication.id);
  }

  void OpenAllScreens() {
    user_.OnlyCloses(true);
    for (int node = kRegisterNode; node <= kLastNode; ++node) {
      history_.Add("nodo " + std::to_string(node) + " tras el error");
      watch_->Begin();
      const auto before = user_.Gestures();
      try {
        Activate(node);
      } catch (const RuntimeError& error) {
        throw Violation("El nodo " + std::to_string(node) + " ya no se abre: " +
                        std::to_string(error.Number()) + " " + error.Description());
      }
      watch_->End();
      if (user_.Gestures() == before)
        throw Violation("El nodo " + std::to_string(node) + " no ha mostrado nada");
    }
    user_.OnlyCloses(false);
  }

  WalkOptions options_;
  std::optional<ServerPlace> place_;
  bool ordered_ = false;
  Prng random_;
  History& history_;
  RandomUser user_;
  RandomHost host_;
  std::unique_ptr<School> school_;
  std::unique_ptr<Watch> watch_;
  std::uint64_t nextSchool_ = 0;  ///< when that many gestures have been made
  std::uint64_t schools_ = 0;
  std::uint64_t screens_ = 0;
  std::map<std::string, std::uint64_t> errors_;
};

/// Walks on schools in memory and writes the transcript down, in a process of its own: the module
/// keeps some things as long as its program runs.
void WriteTranscript(const WalkOptions& options, History& history, const std::string& path) {
  const auto child = fork();
  if (child == 0) {
    auto status = 0;
    try {
      std::ofstream file(path);
      history.Transcript = [&file](const std::string& line) { file << line << '\n'; };
      Walk walk(options, history);
      walk.OrderRows();
      walk.Run();
    } catch (const std::exception& failure) {
      std::cerr << "walk: en un fichero: " << failure.what() << '\n';
      history.Print(std::cerr);
      status = 1;
    }
    std::cerr.flush();
    _exit(status);
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
    throw Violation("Ya en un fichero no va como debe");
}

/// A transcript to hold another one against.
class Expected {
 public:
  explicit Expected(const std::string& path) : file_(path) {}

  /// The text may hold several lines.
  void Hold(const std::string& text) {
    std::istringstream lines(text + '\n');
    for (std::string line; std::getline(lines, line); ++lines_) {
      std::string expected;
      std::getline(file_, expected);
      if (line != expected)
        throw Violation("En el servidor va de otra manera que en un fichero:\n  " + line + "\n  " +
                        expected);
    }
  }

  void HoldEnd() {
    std::string line;
    if (std::getline(file_, line)) throw Violation("En el fichero sigue con: " + line);
  }

  [[nodiscard]] std::uint64_t Lines() const noexcept { return lines_; }

 private:
  std::ifstream file_;
  std::uint64_t lines_ = 0;
};

/// The same walk twice: on schools in memory, by a process of its own, and then on a server. What
/// is shown, asked and answered has to be the same line by line: each gesture and message, each
/// statement and the numbers of the errors. `Violation` at the first that differs.
void WalkOnServer(const WalkOptions& options, History& history) {
  const TempFolder folder;
  const auto path = folder / "fichero";
  WriteTranscript(options, history, path);
  const auto owners = SchoolAddress::Odbc(options.owner.empty() ? options.odbc : options.owner);
  MakeSchool(owners, [](Connection&) {});
  const auto owner = owners.Open("");
  if (!options.owner.empty())
    for (const auto& right : ServerRights()) owner->Execute(right);
  const auto teacher = SchoolAddress::Odbc(options.odbc).Open("");
  Expected expected(path);
  history.Transcript = [&expected](const std::string& line) { expected.Hold(line); };
  Walk walk(options, history);
  walk.OnServer({*teacher, *owner});
  walk.Run();
  history.Transcript = nullptr;
  expected.HoldEnd();
  walk.Report(std::cout);
  std::cout << expected.Lines() << " líneas como en un fichero\n";
}

void Run(const WalkOptions& options, History& history) {
  if (!options.odbc.empty()) return WalkOnServer(options, history);
  Walk walk(options, history);
  walk.Run();
  walk.Report(std::cout);
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  return WalkMain({"walk", kUsage, {}, Run, true}, argc, argv);
}
