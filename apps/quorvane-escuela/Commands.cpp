#include "apps/quorvane-escuela/Commands.h"

#include <functional>
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
#include "apps/escuela/SchoolWriting.h"
#include "apps/escuela/UserPasswords.h"
#include "apps/quorvane-escuela/ProgressLine.h"
#include "apps/quorvane-escuela/StopSignals.h"
#include "apps/quorvane-escuela/UnlessStopped.h"
#include "apps/quorvane-escuela/UserCommands.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

constexpr auto kMayBeTorn = 3;

void Print(const std::vector<std::string>& lines) {
  for (const auto& line : lines) std::cout << VisibleText(line) << '\n';
}

void PrintCopy(const SchoolCopy& copy) {
  for (const auto& table : copy.tables)
    std::cout << "  " << std::left << std::setw(24) << table.name << std::right << std::setw(9)
              << table.rows << '\n';
  if (!copy.notCopied.empty()) {
    std::cout << "No se ha copiado, porque no es de la escuela:\n";
    for (const auto& name : copy.notCopied) std::cout << "  " << VisibleText(name) << '\n';
  }
  if (copy.passwordsLeft)
    std::cout
        << "La copia no tiene las contraseñas de los usuarios: en un servidor, cada uno entra "
           "con su usuario y su contraseña del servidor\n";
  if (!copy.oneMoment)
    std::cerr << "quorvane-escuela: El origen no permite leerlo todo en el mismo instante "
                 "(ALLOW_SNAPSHOT_ISOLATION): si alguien trabajaba en él, repita la copia\n";
}

/// A new school, by what `fill` writes.
void Make(const SchoolAddress& address, const std::function<void(Connection& school)>& fill) {
  UnlessStopped([&] {
    MakeSchool(address, fill, RequireGoing);
    return 0;
  });
}

}  // namespace

int MakeEmpty(const SchoolAddress& address) {
  Make(address, [](Connection&) {});
  std::cout << "Creada la escuela vacía " << VisibleText(address.Shown()) << '\n';
  return 0;
}

int MakeDemo(const SchoolAddress& address) {
  Make(address, [](Connection& school) { DemoSchool(school).Build(); });
  std::cout << "Creada la escuela de ejemplo " << VisibleText(address.Shown()) << "\n\nUsuarios:\n";
  for (const auto& user : DemoSchool::Users())
    std::cout << "  " << user.id << "  " << std::left << std::setw(13) << user.name << " perfil "
              << user.profile << "  " << user.role << '\n';
  return 0;
}

int Generate(const SchoolAddress& address, std::size_t students, std::uint64_t seed) {
  Make(address, [students, seed](Connection& school) {
    const ProgressLine progress("Generando");
    SchoolGenerator(school).Build(students, seed,
                                  [&](std::size_t done) { progress.Percent(done, students); });
  });
  std::cout << "Creada la escuela " << VisibleText(address.Shown()) << " con " << students
            << " alumnos\n";
  return 0;
}

int Copy(const SchoolAddress& from, const SchoolAddress& to) {
  return UnlessStopped([&] {
    SchoolCopy copy;
    {
      const ProgressLine progress("Copiando");
      copy = CopySchool(from, to,
                        {[&](std::size_t done, std::size_t all) { progress.Percent(done, all); },
                         StopSignals::Came});
    }
    std::cout << "Copiada la escuela " << VisibleText(from.Shown()) << " en "
              << VisibleText(to.Shown()) << '\n';
    PrintCopy(copy);
    return copy.oneMoment ? 0 : kMayBeTorn;
  });
}

int Check(const SchoolAddress& address) {
  const auto school = address.Open("", SchoolAddress::Access::ReadOnly);
  const SchoolCheck check(*school);
  auto missing = check.Structure(SchoolCheck::For::Module);
  if (missing.empty()) missing = check.Damage();
  Print(missing);
  if (!missing.empty()) {
    std::cout << "No apta para el módulo\n";
    return 1;
  }
  auto rows = check.Rows();
  for (const auto& finding : check.Strange()) rows.push_back(finding);
  for (const auto& finding : UserPasswords(*school).Findings()) rows.push_back(finding);
  if (address.EverybodyReads())
    rows.push_back(
        "Cualquier usuario de la máquina puede leer el fichero, que tiene datos de "
        "menores: quite el permiso con «chmod o-rwx»");
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
    if (!publication.ownerName.empty())
      std::cout << " (" << VisibleText(publication.ownerName) << ")";
    std::cout << ", " << VisibleText(publication.evaluation) << '\n';
    for (const auto& subject : publication.subjects)
      std::cout << "  " << VisibleText(subject) << '\n';
  }
  if (publications.empty()) std::cout << "No hay publicaciones ni bloqueos\n";
  return 0;
}

int RemoveLocks(const SchoolAddress& address, int publication) {
  return UnlessStopped([&] {
    const auto school = address.Open("");
    RequireSchool(*school);
    AskBeforeEach(*school, RequireGoing);
    if (!LockList(*school).Remove(publication)) {
      std::cout << "No hay ninguna publicación " << publication << '\n';
      return 1;
    }
    if (!address.IsOdbc()) PublicationNotes::Beside(address.Text()).StrikeOut(publication);
    std::cout << "Borrada la publicación " << publication << " con sus bloqueos\n";
    return 0;
  });
}

}  // namespace quorvane
