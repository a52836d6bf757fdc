#include "apps/quorvane-escuela/Commands.h"

#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "apps/escuela/CopySchool.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/NewSchool.h"
#include "apps/escuela/PublicationNotes.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolGenerator.h"
#include "apps/quorvane-escuela/ProgressLine.h"
#include "apps/quorvane-escuela/StopSignals.h"
#include "apps/quorvane-escuela/UserCommands.h"

namespace quorvane {
namespace {

constexpr auto kMayBeTorn = 3;

void Print(const std::vector<std::string>& lines) {
  for (const auto& line : lines) std::cout << line << '\n';
}

void PrintCopy(const SchoolCopy& copy) {
  for (const auto& table : copy.tables)
    std::cout << "  " << std::left << std::setw(24) << table.name << std::right << std::setw(9)
              << table.rows << '\n';
  if (!copy.notCopied.empty()) {
    std::cout << "No se ha copiado, porque no es de la escuela:\n";
    for (const auto& name : copy.notCopied) std::cout << "  " << name << '\n';
  }
  if (!copy.oneMoment)
    std::cerr << "quorvane-escuela: El origen no permite leerlo todo en el mismo instante "
                 "(ALLOW_SNAPSHOT_ISOLATION): si alguien trabajaba en él, repita la copia\n";
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
    const ProgressLine progress("Generando");
    SchoolGenerator(school).Build(students, seed,
                                  [&](std::size_t done) { progress.Percent(done, students); });
  });
  std::cout << "Creada la escuela " << address.Shown() << " con " << students << " alumnos\n";
  return 0;
}

int Copy(const SchoolAddress& from, const SchoolAddress& to) {
  const StopSignals signals;
  try {
    SchoolCopy copy;
    {
      const ProgressLine progress("Copiando");
      copy = CopySchool(from, to,
                        {[&](std::size_t done, std::size_t all) { progress.Percent(done, all); },
                         StopSignals::Came});
    }
    std::cout << "Copiada la escuela " << from.Shown() << " en " << to.Shown() << '\n';
    PrintCopy(copy);
    return copy.oneMoment ? 0 : kMayBeTorn;
  } catch (const CopyStopped&) {
    std::cerr << "quorvane-escuela: Copia interrumpida: no ha quedado nada escrito\n";
    StopSignals::End();
  }
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
  // No fault of the rows: who wants it so may have it so.
  if (const auto passwords = PasswordsFinding(*school); !passwords.empty())
    std::cout << passwords << '\n';
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
  if (!address.IsOdbc()) PublicationNotes::Beside(address.Text()).StrikeOut(publication);
  std::cout << "Borrada la publicación " << publication << " con sus bloqueos\n";
  return 0;
}

}  // namespace quorvane
