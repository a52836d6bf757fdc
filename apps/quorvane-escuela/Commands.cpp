#include "apps/quorvane-escuela/Commands.h"

#include <iomanip>
#include <iostream>
#include <unistd.h>
#include <vector>

#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/NewSchool.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolGenerator.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

/// Shows how far a long task has come, on a terminal alone: a log has no use for it.
class ProgressLine {
 public:
  ProgressLine() : shown_(isatty(STDERR_FILENO) == 1) {}
  ~ProgressLine() { Show("\r\033[K"); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ProgressLine(ProgressLine&&) = delete;
  ProgressLine& operator=(ProgressLine&&) = delete;

  void Percent(std::size_t done, std::size_t all) const {
    Show("\rGenerando... " + std::to_string(done * 100 / all) + " %");
  }

 private:
  void Show(const std::string& text) const {
    if (shown_) std::cerr << text << std::flush;
  }

  bool shown_;
};

/// A school that is there and fit to be used; a runtime error tells what it lacks.
void RequireSchool(Connection& school) {
  const auto findings = SchoolCheck(school).Structure(SchoolCheck::For::Module);
  if (!findings.empty()) throw RuntimeError(ErrorNumber::StatementFailed, findings.front());
}

void Print(const std::vector<std::string>& lines) {
  for (const auto& line : lines) std::cout << line << '\n';
}

}  // namespace

int MakeEmpty(const SchoolAddress& address) {
  MakeSchool(address, [](Connection&) {});
  std::cout << "Creada la escuela vacía " << address.Shown() << '\n';
  return 0;
}

int MakeDemo(const SchoolAddress& address) {
  MakeSchool(address, [](Connection& school) { DemoSchool(school).Build(); });
  std::cout << "Creada la escuela de ejemplo " << address.Shown() << "\n\nUsuarios:\n";
  for (const auto& user : DemoSchool::Users())
    std::cout << "  " << user.id << "  " << std::left << std::setw(13) << user.name << " perfil "
              << user.profile << "  " << user.role << '\n';
  return 0;
}

int Generate(const SchoolAddress& address, std::size_t students, std::uint64_t seed) {
  MakeSchool(address, [students, seed](Connection& school) {
    const ProgressLine progress;
    SchoolGenerator(school).Build(students, seed,
                                  [&](std::size_t done) { progress.Percent(done, students); });
  });
  std::cout << "Creada la escuela " << address.Shown() << " con " << students << " alumnos\n";
  return 0;
}

int Check(const SchoolAddress& address) {
  const auto school = address.Open("", SchoolAddress::Access::ReadOnly);
  const SchoolCheck check(*school);
  const auto missing = check.Structure(SchoolCheck::For::Module);
  Print(missing);
  if (!missing.empty()) {
    std::cout << "No apta para el módulo\n";
    return 1;
  }
  const auto rows = check.Rows();
  Print(rows);
  std::cout << (rows.empty() ? "Apta para el módulo, sin avisos\n"
                             : "Apta para el módulo, con avisos\n");
  return rows.empty() ? 0 : 1;
}

int ShowLocks(const SchoolAddress& address) {
  const auto school = address.Open("", SchoolAddress::Access::ReadOnly);
  RequireSchool(*school);
  const auto publications = LockList(*school).Read();
  for (const auto& publication : publications) {
    std::cout << (publication.exists ? "Publicación " : "Bloqueos sin publicación ")
              << publication.id << ": usuario " << publication.owner;
    if (!publication.ownerName.empty()) std::cout << " (" << publication.ownerName << ")";
    std::cout << ", " << publication.evaluation << '\n';
    for (const auto& subject : publication.subjects) std::cout << "  " << subject << '\n';
  }
  if (publications.empty()) std::cout << "No hay publicaciones ni bloqueos\n";
  return 0;
}

int RemoveLocks(const SchoolAddress& address, int publication) {
  const auto school = address.Open("");
  RequireSchool(*school);
  if (!LockList(*school).Remove(publication)) {
    std::cout << "No hay ninguna publicación " << publication << '\n';
    return 1;
  }
  std::cout << "Borrada la publicación " << publication << " con sus bloqueos\n";
  return 0;
}

}  // namespace quorvane
