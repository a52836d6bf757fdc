#include <chrono>
#include <csignal>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/Prng.h"
#include "apps/escuela/SchoolFile.h"
#include "tests/kills/FormsOpen.h"
#include "tests/kills/Replica.h"
#include "tests/kills/Report.h"
#include "tests/kills/Victim.h"
#include "tests/support/ProgramOptions.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

constexpr const char* kUsage = R"(Uso: kills [OPCIONES]

Mata procesos con kill -9 en un punto al azar de una sesión al azar, y comprueba
cada vez la escuela, lo que había vuelto, los bloqueos y que los formularios se abren.

  --veces N      cuántos (200)
  --semilla S    con qué números al azar (1)
  --carpeta D    dónde poner la escuela (la de los ficheros temporales)
  --falta        los procesos dicen haber escrito lo que no; termina bien si se descubre
)";

struct KillOptions {
  int times = 200;
  std::uint64_t seed = 1;
  std::string folder;  ///< where the school is; that for temporary files when empty
  bool fault = false;  ///< the victims tell of a write that they haven't done, now and then
};

/// Kills and waits, whatever happens: no process may outlive the one that looks.
class Child {
 public:
  explicit Child(pid_t pid) : pid_(pid) {
    if (pid < 0) throw std::runtime_error("No se puede iniciar otro proceso");
  }
  ~Child() { Kill(); }
  Child(Child&&) = delete;

  [[nodiscard]] bool IsChild() const noexcept { return pid_ == 0; }

  /// Whether it had lived until now.
  bool Kill() {
    if (pid_ == 0) return false;
    kill(pid_, SIGKILL);
    int status = 0;
    waitpid(std::exchange(pid_, 0), &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

 private:
  pid_t pid_;
};

/// Kills one process after the other at a random point of a random session, and looks at the school
/// each time: it is whole, holds every statement that had come back and nothing else but the one in
/// flight, its locks can be told and removed, and the forms open as if nobody had died.
class Kills {
 public:
  /// In the text of the error that tells of a lost write.
  static constexpr std::string_view kLost = "no está lo que había vuelto:";

  explicit Kills(const KillOptions& options)
      : options_(options),
        folder_(options.folder),
        random_(options.seed),
        sample_(folder_ / "muestra.sqlite") {
    MakeSchoolFile(sample_, [](Connection& school) { DemoSchool(school).Build(); });
    sqlite::SqliteConnection school(sample_, "");
    school.Open();
    LockList locks(school);
    for (const auto& publication : locks.Read()) locks.Remove(publication.id);
  }

  /// Throws a runtime error of the language when something is wrong.
  void Run() {
    for (; kills_ < options_.times; ++kills_) {
      if (kills_ % kKillsOfSchool == 0) NewSchool();
      try {
        Kill();
      } catch (const std::exception& failure) {
        throw std::runtime_error("muerte " + std::to_string(kills_ + 1) + " (" + mode_ +
                                 "): " + failure.what());
      }
    }
  }

  void Print(std::ostream& out) const {
    out << kills_ << " procesos muertos con kill -9 en " << schools_ << " escuelas, "
        << accompanied_ << " con otro programa abierto\n"
        << "  sentencias que habían vuelto: " << returned_ << ", de ellas escrituras: " << written_
        << "\n  escrituras en vuelo: " << inFlight_ << "; han quedado dentro: " << inside_
        << ", fuera: " << outside_ << " (" << late_ << " hasta que se fue el otro programa)"
        << ", sin efecto: " << inFlight_ - inside_ - outside_
        << "\n  publicaciones encontradas y borradas: " << publications_
        << ", con bloqueos: " << locks_
        << "\n  formularios de notas abiertos después por otro usuario: " << shown_ << '\n';
  }

 private:
  static constexpr int kKillsOfSchool = 20;

  void NewSchool() {
    mode_ = schools_ % 2 == 0 ? "wal" : "delete";
    school_ = folder_ / ("escuela-" + std::to_string(++schools_) + ".sqlite");
    std::filesystem::copy_file(sample_, school_);
    Replica::First(school_, "PRAGMA journal_mode=" + mode_);
    replica_.emplace(school_);
  }

  void Kill() {
    // The last to leave clears the log away; with another there, the next finds it as it was left.
    std::optional<Child> bystander;
    if (random_.Chance(30)) {
      ++accompanied_;
      Report ready;
      bystander.emplace(fork());
      if (bystander->IsChild()) BeBystander(school_, ready.In());
      ready.OnlyRead();
      if (!ready.Next()) throw std::runtime_error("El otro programa no abre la escuela");
    }
    // Made behind the other's start, who would keep it open.
    Report report;
    KillOne(report);
    TakeOver(report);
    const auto accompanied = bystander.has_value();
    bystander.reset();
    if (accompanied && report.InFlight()) TakeLate(*report.InFlight());
    RemoveLocks();
  }

  void KillOne(Report& report) {
    constexpr std::size_t kStatements = 1500;
    constexpr std::size_t kNanoseconds = 500'000;
    const auto seed = options_.seed * 1'000'000 + static_cast<std::uint64_t>(kills_);
    const auto target = 1 + static_cast<int>(random_.Below(kStatements));
    const auto whileWriting = random_.Chance(60);
    const auto whilePublishing = random_.Chance(50);
    const std::chrono::nanoseconds delay(random_.Below(kNanoseconds));
    Child victim(fork());
    if (victim.IsChild()) BeVictim(school_, seed, report.In(), options_.fault);
    report.OnlyRead();
    while (report.Begun() < target || (whileWriting && !report.InFlight()) ||
           (whilePublishing && !report.Publishes()))
      if (!report.Next()) throw std::runtime_error("El proceso ha terminado solo");
    // On one processor the victim stands still meanwhile, unless it is left to it.
    if (random_.Chance(50))
      Spin(delay);
    else
      std::this_thread::sleep_for(delay);
    if (!victim.Kill()) throw std::runtime_error("El proceso ha terminado solo");
    while (report.Next()) {
    }
    returned_ += report.Returned();
    written_ += static_cast<std::int64_t>(report.Written().size());
  }

  /// Waits without sleeping: what takes microseconds isn't met otherwise.
  static void Spin(std::chrono::nanoseconds time) {
    const auto until = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < until) {
    }
  }

  void TakeOver(const Report& report) {
    for (const auto& statement : report.Written()) replica_->Apply(statement);
    const auto found = Replica::AllOf(school_);
    auto expected = replica_->All();
    if (report.InFlight()) {
      ++inFlight_;
      const auto without = expected;
      replica_->Apply(*report.InFlight());
      expected = replica_->All();
      if (found == without && found != expected) {
        ++outside_;
        replica_.emplace(school_);
        return;
      }
      if (without != expected) ++inside_;
    }
    if (found != expected)
      throw std::runtime_error("Tras " + std::to_string(report.Written().size()) + " escrituras " +
                               std::string(kLost) + Difference(expected, found));
  }

  /// What is whole in the log but not yet in the index that the programs share is out of sight
  /// while one of them lives, and comes in when the next one finds the log alone.
  void TakeLate(const std::string& inFlight) {
    if (Replica::AllOf(school_) == replica_->All()) return;
    replica_->Apply(inFlight);
    ++late_;
    const auto difference = Difference(replica_->All(), Replica::AllOf(school_));
    if (!difference.empty())
      throw std::runtime_error("Sin el otro programa " + std::string(kLost) + difference);
  }

  static std::string Difference(const Replica::Rows& expected, const Replica::Rows& found) {
    std::string text;
    for (const auto& [table, rows] : found)
      if (!expected.contains(table) || expected.at(table) != rows) text += " " + table;
    return text;
  }

  // What is done after a death: what a technician does, and what the next user sees.

  void RemoveLocks() {
    const auto target = ChooseTarget(school_, random_);
    std::vector<std::string> numbers;
    int locks = 0;
    std::istringstream lines(Locks());
    for (std::string line; std::getline(lines, line);) {
      for (const std::string_view prefix : {"Publicación ", "Bloqueos sin publicación "})
        if (line.starts_with(prefix))
          numbers.push_back(line.substr(prefix.size(), line.find(':') - prefix.size()));
      if (line.starts_with("  ")) ++locks;
    }
    const auto count = [this](const std::string& what) {
      return std::stoi(Replica::First(school_, "SELECT COUNT(*) FROM " + what));
    };
    const auto all = count(
        "(SELECT IDPublicacionPte FROM PublicacionPte UNION SELECT CodPublicacion "
        "FROM BloqueoPte)");
    if (static_cast<int>(numbers.size()) != all || locks != count("BloqueoPte"))
      throw std::runtime_error("bloqueos no nombra lo que ha quedado");
    publications_ += static_cast<int>(numbers.size());
    locks_ += locks;
    for (const auto& number : numbers) {
      static_cast<void>(Locks(" --borrar", " " + number));
      replica_->Apply("DELETE FROM BloqueoPte WHERE CodPublicacion=" + number);
      replica_->Apply("DELETE FROM PublicacionPte WHERE IDPublicacionPte=" + number);
    }
    if (Locks() != "No hay publicaciones ni bloqueos\n")
      throw std::runtime_error("Quedan bloqueos tras borrarlos");
    if (Replica::AllOf(school_) != replica_->All())
      throw std::runtime_error("Al borrar los bloqueos ha cambiado algo más");
    CompareForms(target);
  }

  /// What the technician's tool prints of the locks.
  [[nodiscard]] std::string Locks(const std::string& option = "",
                                  const std::string& value = "") const {
    const auto result =
        RunCommand(QUORVANE_ESCUELA " bloqueos " + Quoted(school_) + option + value);
    if (result.status != 0) throw std::runtime_error("bloqueos" + option + ": " + result.text);
    return result.text;
  }

  void CompareForms(const Target& target) {
    const auto alike = school_ + ".replica";
    replica_->Save(alike);
    const auto opened = OpenForms(school_, target);
    if (opened.text != OpenForms(alike, target).text)
      throw std::runtime_error("Los formularios no se abren como si nadie hubiera muerto");
    if (Replica::AllOf(school_) != replica_->All())
      throw std::runtime_error("Abrir y cerrar los formularios ha dejado algo");
    shown_ += opened.shown;
    for (const auto* const ending : {"", "-wal", "-shm"}) std::filesystem::remove(alike + ending);
  }

  KillOptions options_;
  TempFolder folder_;
  Prng random_;
  std::string sample_;
  std::string school_;
  std::string mode_;
  std::optional<Replica> replica_;
  int kills_ = 0;
  int schools_ = 0;
  int accompanied_ = 0;
  std::int64_t returned_ = 0;
  std::int64_t written_ = 0;
  int inFlight_ = 0;
  int inside_ = 0;
  int outside_ = 0;
  int late_ = 0;
  int publications_ = 0;
  int locks_ = 0;
  int shown_ = 0;
};

int Play(const KillOptions& options) {
  Kills kills(options);
  try {
    kills.Run();
  } catch (const std::exception& failure) {
    const auto found =
        std::string_view(failure.what()).find(Kills::kLost) != std::string_view::npos;
    if (!options.fault || !found) throw;
    std::cerr << "kills: " << failure.what() << '\n';
    return 0;
  }
  kills.Print(std::cout);
  return options.fault ? 1 : 0;
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  KillOptions options;
  return ProgramOptions("kills", kUsage)
      .Positive("--veces", options.times)
      .Positive("--semilla", options.seed)
      .Text("--carpeta", options.folder)
      .Flag("--falta", options.fault)
      .Run(argc, argv, [&options] { return Play(options); });
}
