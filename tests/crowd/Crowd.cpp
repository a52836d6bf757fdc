#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/NewSchool.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/SchoolFile.h"
#include "apps/escuela/SchoolGenerator.h"
#include "platform/text/PlainNumber.h"
#include "tests/crowd/Audit.h"
#include "tests/crowd/CrowdOptions.h"
#include "tests/crowd/FaultCount.h"
#include "tests/crowd/Figures.h"
#include "tests/crowd/Member.h"
#include "tests/support/ProgramOptions.h"
#include "tests/support/ServerRights.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

constexpr const char* kUsage = R"(Uso: crowd [OPCIONES]

Varios procesos sobre una misma escuela: cada uno abre, califica, graba y sale al
azar. Después comprueba, apunte por apunte, que nadie ha perdido lo que grabó.

  --procesos N    cuántos (8)
  --segundos N    cuánto tiempo (60)
  --semilla S     con qué números al azar (1)
  --pausa N       hasta cuántos milisegundos piensa cada uno entre dos gestos (0)
  --escuela E     demo, un número de alumnos o una base de datos, que se copia (300)
  --diario M      journal_mode de la base de datos: wal o delete (wal)
  --odbc CADENA   la escuela, en una base de datos de PostgreSQL aún sin tablas; al
                  terminar se quitan
  --duena CADENA  lo mismo, como quien hace las tablas; sin ella, el de --odbc
  --carpeta D     dónde poner la escuela (la de los ficheros temporales)
  --falta F       el primero hace mal a propósito: nota, bloqueo, perdida o espera;
                  termina bien si se descubre. Sigue hasta que la haya hecho
                  tres veces, un minuto como mucho
)";
constexpr std::size_t kShown = 10;

/// How each fault shows.
const std::map<Fault, std::string_view> kSigns{{Fault::Grade, "Ha dado notas"},
                                               {Fault::Lock, "Quedan "},
                                               {Fault::Lost, "dice haber escrito lo que no está"},
                                               {Fault::Wait, "errores de la base de datos"}};

/// Several users at once on one school, each a process of its own, and what must hold of it.
class Crowd {
 public:
  explicit Crowd(const CrowdOptions& options)
      : options_(options),
        folder_(options.folder),
        school_(options.odbc.empty() ? SchoolAddress::File(folder_ / "escuela.sqlite")
                                     : SchoolAddress::Odbc(options.odbc)),
        owners_(options.owner.empty() ? school_ : SchoolAddress::Odbc(options.owner)) {}
  /// Takes the school away again.
  ~Crowd() {
    if (!made_) return;
    try {
      Diary::DropSchool(*owners_.Open(""));
    } catch (const std::exception& failure) {
      std::cerr << "crowd: la escuela se queda en el servidor: " << failure.what() << '\n';
    }
  }
  Crowd(Crowd&&) = delete;

  /// Lets them play, and looks at what they have left. False when something was wrong.
  bool Run() {
    PrepareSchool();
    Play();
    Check();
    return violations_.empty();
  }

  void Report(std::ostream& out) const {
    out << options_.processes << " procesos, " << options_.seconds << " s, semilla "
        << options_.seed
        << (school_.IsOdbc() ? ", en un servidor" : ", journal_mode=" + options_.journalMode)
        << ", pausas de hasta " << options_.pause << " ms\n";
    PrintFigures(out, figures_, played_);
    out << "Filas escritas, comprobadas una a una con los cuadernos: " << entries_
        << "\nPor los huecos del protocolo (no son fallos):\n  materias bloqueadas dos veces: "
        << holes_.doubleLocks
        << "\n  bloqueos quitados con los de otra publicación del mismo número: "
        << holes_.foreignLocks
        << "\n  notas grabadas con bloqueo y cambiadas por quien había cargado antes: "
        << holes_.alteredUnder << "\n  lo mismo, ya sin bloqueo: " << holes_.overwritten
        << "\n  notas grabadas con bloqueo y quitadas por un registro abierto antes: "
        << holes_.removedUnder
        << "\n  notas dadas a una materia con el número de otra quitada: " << holes_.reusedNumbers
        << '\n';
  }
  [[nodiscard]] const std::vector<std::string>& Violations() const noexcept { return violations_; }

 private:
  void PrepareSchool() {
    if (school_.IsOdbc())
      MakeOnServer();
    else
      MakeFile();
    const auto school = owners_.Open("");
    LockList locks(*school);
    for (const auto& publication : locks.Read()) locks.Remove(publication.id);
    // As a server does by itself once there are rows.
    if (school_.IsOdbc()) school->Execute("ANALYZE");
    options_.users = school->Execute("SELECT COUNT(*) FROM Usuario").Fields(0).Long();
    Diary::Create(*school);
    before_ = Diary::ReadAll(*school);
  }

  void MakeFile() {
    const auto& path = school_.Text();
    if (std::filesystem::exists(options_.school))
      std::filesystem::copy_file(options_.school, path);
    else
      MakeSchoolFile(path, [this](Connection& school) { Fill(school); });
    school_.Open("")->Execute("PRAGMA journal_mode=" + options_.journalMode);
  }

  void MakeOnServer() {
    MakeSchool(owners_, [this](Connection& school) { Fill(school); });
    made_ = true;
    const auto school = owners_.Open("");
    if (EngineReached(*school) != sqltext::Engine::PostgreSql)
      throw std::runtime_error("Por --odbc solo se sabe jugar en PostgreSQL");
    if (!options_.owner.empty())
      for (const auto& right : ServerRights()) school->Execute(right);
  }

  void Fill(Connection& school) const {
    if (const auto students = PlainNumber<std::size_t>(options_.school))
      SchoolGenerator(school).Build(*students, options_.seed, [](std::size_t) {});
    else if (options_.school == "demo")
      DemoSchool(school).Build();
    else
      throw std::invalid_argument("--escuela pide demo, un número de alumnos o una base de datos");
  }

  void Play() {
    const auto start = std::chrono::steady_clock::now();
    std::vector<pid_t> children;
    for (int process = 1; process <= options_.processes; ++process) {
      const auto child = fork();
      if (child == 0) BeMember(process);
      if (child < 0) violations_.emplace_back("No se puede iniciar otro proceso");
      children.push_back(child);
    }
    for (const auto child : children) {
      int status = 0;
      waitpid(child, &status, 0);
      if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        violations_.emplace_back("Un proceso ha terminado mal");
    }
    played_ = options_.seconds;
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    // What looks for a fault goes on beyond what it is given.
    if (options_.fault != Fault::None) played_ = std::max(played_, took.count());
  }

  /// What a process does; it never comes back.
  [[noreturn]] void BeMember(int number) {
    auto status = 0;
    try {
      Member(number, options_, faults_, school_, JournalOf(number)).Play();
    } catch (const std::exception& failure) {
      std::cerr << "crowd: proceso " << number << ": " << failure.what() << '\n';
      status = 1;
    }
    std::cerr.flush();
    _exit(status);
  }

  [[nodiscard]] std::string JournalOf(int process) const {
    return folder_ / ("proceso-" + std::to_string(process));
  }

  void Check() {
    std::vector<std::vector<Journal::Line>> journals;
    for (int process = 1; process <= options_.processes; ++process)
      journals.push_back(TakeFigures(process));
    CheckFigures();
    const auto school = owners_.Open("");
    CheckWhole(*school);
    const auto after = Diary::ReadAll(*school);
    const auto diary = Diary::Read(*school);
    entries_ = diary.size();
    Deeds::Columns columns;
    for (const auto& table : Diary::Tables()) columns[table] = Diary::Columns(*school, table);
    const Deeds deeds(diary, journals, columns);
    Audit audit(Written(before_));
    audit.Run(diary, deeds);
    audit.CompareEnd(Written(after));
    for (const auto& found : {deeds.Violations(), audit.Violations()})
      violations_.insert(violations_.end(), found.begin(), found.end());
    for (const auto& [name, table] : before_)
      if (std::ranges::count(Diary::Tables(), name) == 0 && after.at(name) != table)
        violations_.push_back("La tabla " + name + " ha cambiado");
    holes_ = audit.Found();
  }

  static std::map<std::string, Diary::Table> Written(
      const std::map<std::string, Diary::Table>& all) {
    std::map<std::string, Diary::Table> tables;
    for (const auto& name : Diary::Tables()) tables[name] = all.at(name);
    return tables;
  }

  /// The other lines of its journal.
  [[nodiscard]] std::vector<Journal::Line> TakeFigures(int process) {
    constexpr std::string_view kError = "error ";
    auto lines = Journal::Read(JournalOf(process));
    auto& figures = figures_.emplace_back();
    std::erase_if(lines, [&](const Journal::Line& line) {
      if (line.kind != Journal::Kind::Figure) return false;
      if (line.text.starts_with(kError))
        figures.errors[line.text.substr(kError.size())] = line.number;
      else
        figures[line.text] = line.number;
      return true;
    });
    return lines;
  }

  void CheckFigures() {
    std::int64_t openings = 0;
    int process = 0;
    for (auto& figures : figures_) {
      ++process;
      if (figures[kBusy] != 0)
        violations_.push_back("El proceso " + std::to_string(process) + " ha recibido " +
                              std::to_string(figures[kBusy]) +
                              " errores de la base de datos que no son un choque de clave");
      openings += figures[kOpenings];
    }
    if (openings == 0) violations_.emplace_back("Nadie ha abierto nada");
  }

  void CheckWhole(Connection& school) {
    if (school_.IsOdbc()) return;
    const auto whole = school.Execute("PRAGMA integrity_check").Fields(0).Text();
    if (whole != "ok") violations_.push_back("La base de datos está dañada: " + whole);
  }

  CrowdOptions options_;
  TempFolder folder_;
  SchoolAddress school_;
  SchoolAddress owners_;  ///< the same, as who has made it
  bool made_ = false;     ///< on a server
  FaultCount faults_;
  double played_ = 0;  ///< seconds
  std::map<std::string, Diary::Table> before_;
  std::vector<Figures> figures_;
  std::vector<std::string> violations_;
  Holes holes_;
  std::size_t entries_ = 0;
};

int Play(const CrowdOptions& options) {
  Crowd crowd(options);
  auto good = crowd.Run();
  crowd.Report(std::cout);
  std::size_t shown = 0;
  for (const auto& violation : crowd.Violations())
    if (++shown <= kShown) std::cout << "MAL: " << violation << '\n';
  if (shown > kShown) std::cout << "MAL: y " << shown - kShown << " más\n";
  // What is done wrong on purpose is to be found.
  if (options.fault != Fault::None)
    good = std::ranges::any_of(crowd.Violations(), [&](const std::string& violation) {
      return violation.find(kSigns.at(options.fault)) != std::string::npos;
    });
  return good ? 0 : 1;
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  CrowdOptions options;
  return ProgramOptions("crowd", kUsage)
      .Positive("--procesos", options.processes)
      .Positive("--segundos", options.seconds)
      .Positive("--semilla", options.seed)
      .Positive("--pausa", options.pause)
      .Text("--escuela", options.school)
      .OneOf("--diario", options.journalMode, {{"wal", "wal"}, {"delete", "delete"}})
      .Text("--odbc", options.odbc)
      .Text("--duena", options.owner)
      .Text("--carpeta", options.folder)
      .OneOf("--falta", options.fault,
             {{"nota", Fault::Grade},
              {"bloqueo", Fault::Lock},
              {"perdida", Fault::Lost},
              {"espera", Fault::Wait}})
      .Run(argc, argv, [&options] { return Play(options); });
}
