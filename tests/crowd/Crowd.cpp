#include "tests/crowd/Crowd.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/NewSchool.h"
#include "apps/escuela/SchoolFile.h"
#include "apps/escuela/SchoolGenerator.h"
#include "platform/text/PlainNumber.h"
#include "tests/crowd/Member.h"
#include "tests/crowd/ServerDiary.h"
#include "tests/support/ServerRights.h"

namespace quorvane::test {
namespace {

/// What a process does; it never comes back.
[[noreturn]] void BeMember(int number, const CrowdOptions& options, FaultCount& faults,
                           const SchoolAddress& school, const std::string& journal) {
  auto status = 0;
  try {
    Member(number, options, faults, school, journal).Play(std::chrono::seconds(options.seconds));
  } catch (const std::exception& failure) {
    std::cerr << "crowd: proceso " << number << ": " << failure.what() << '\n';
    status = 1;
  }
  std::cerr.flush();
  _exit(status);
}

void Fill(Connection& school, const CrowdOptions& options) {
  if (const auto students = PlainNumber<std::size_t>(options.school))
    SchoolGenerator(school).Build(*students, options.seed, [](std::size_t) {});
  else if (options.school == "demo")
    DemoSchool(school).Build();
  else
    throw std::invalid_argument("--escuela pide demo, un número de alumnos o una base de datos");
}

std::map<std::string, Diary::Table> Written(const std::map<std::string, Diary::Table>& all) {
  std::map<std::string, Diary::Table> tables;
  for (const auto& name : Diary::Tables()) tables[name] = all.at(name);
  return tables;
}

}  // namespace

Crowd::Crowd(const CrowdOptions& options)
    : options_(options),
      folder_(options.folder),
      school_(options.odbc.empty() ? SchoolAddress::File(folder_ / "escuela.sqlite")
                                   : SchoolAddress::Odbc(options.odbc)),
      owners_(options.owner.empty() ? school_ : SchoolAddress::Odbc(options.owner)) {}

Crowd::~Crowd() {
  if (!made_) return;
  try {
    ServerDiary::DropSchool(*owners_.Open(""));
  } catch (const std::exception& failure) {
    std::cerr << "crowd: la escuela se queda en el servidor: " << failure.what() << '\n';
  }
}

std::string Crowd::JournalOf(int process) const {
  return folder_ / ("proceso-" + std::to_string(process));
}

bool Crowd::Run() {
  MakeSchool();
  Play();
  Check();
  return violations_.empty();
}

void Crowd::MakeFile() {
  const auto& path = school_.Text();
  if (std::filesystem::exists(options_.school))
    std::filesystem::copy_file(options_.school, path);
  else
    MakeSchoolFile(path, [this](Connection& school) { Fill(school, options_); });
  school_.Open("")->Execute("PRAGMA journal_mode=" + options_.journalMode);
}

void Crowd::MakeOnServer() {
  quorvane::MakeSchool(owners_, [this](Connection& school) { Fill(school, options_); });
  made_ = true;
  const auto school = owners_.Open("");
  if (EngineReached(*school) != sqltext::Engine::PostgreSql)
    throw std::runtime_error("Por --odbc solo se sabe jugar en PostgreSQL");
  if (!options_.owner.empty())
    for (const auto& right : ServerRights()) school->Execute(right);
}

void Crowd::MakeSchool() {
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

void Crowd::Play() {
  const auto start = std::chrono::steady_clock::now();
  std::vector<pid_t> children;
  for (int process = 1; process <= options_.processes; ++process) {
    const auto child = fork();
    if (child == 0) BeMember(process, options_, faults_, school_, JournalOf(process));
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

std::vector<Journal::Line> Crowd::TakeFigures(int process) {
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

void Crowd::CheckWhole(Connection& school) {
  if (school_.IsOdbc()) return;
  const auto whole = school.Execute("PRAGMA integrity_check").Fields(0).Text();
  if (whole != "ok") violations_.push_back("La base de datos está dañada: " + whole);
}

void Crowd::Check() {
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
    if (Written(after).count(name) == 0 && after.at(name) != table)
      violations_.push_back("La tabla " + name + " ha cambiado");
  holes_ = audit.Found();
}

void Crowd::CheckFigures() {
  std::int64_t openings = 0;
  for (std::size_t process = 0; process < figures_.size(); ++process) {
    auto& figures = figures_[process];
    const auto name = "El proceso " + std::to_string(process + 1);
    if (figures[kBusy] != 0)
      violations_.push_back(name + " ha recibido " + std::to_string(figures[kBusy]) +
                            " errores de la base de datos que no son un choque de clave");
    openings += figures[kOpenings];
  }
  if (openings == 0) violations_.emplace_back("Nadie ha abierto nada");
}

void Crowd::Report(std::ostream& out) const {
  out << options_.processes << " procesos, " << options_.seconds << " s, semilla " << options_.seed
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

}  // namespace quorvane::test
