#include "apps/escuela/LockList.h"

#include <algorithm>

#include "apps/escuela/PersonName.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/Transaction.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

// Columns without a name in the module are read by their place.
constexpr std::size_t kPublicationOwner = 2;

}  // namespace

std::string LockList::OwnerName(int user) const {
  const auto staff = connection_.Execute(
      "SELECT Nombre, Apellido1, Apellido2 FROM Personal WHERE CodUsuario=" + std::to_string(user));
  if (staff.Eof()) return AccountName(user);
  return Trimmed(staff.Fields("Nombre").Text() + " " + staff.Fields("Apellido1").Text() + " " +
                 staff.Fields("Apellido2").Text());
}

std::string LockList::AccountName(int user) const {
  const auto account =
      connection_.Execute("SELECT * FROM Usuario WHERE IDUsuario=" + std::to_string(user));
  // The column is the host's: a school from elsewhere may not have it.
  const auto named = std::any_of(account.Names().begin(), account.Names().end(),
                                 [](const auto& name) { return EqualNoCase(name, "Nombre"); });
  return named && !account.Eof() ? account.Fields("Nombre").Text() : std::string();
}

std::string LockList::EvaluationName(int evaluation) const {
  const auto number = std::to_string(evaluation);
  const auto row =
      connection_.Execute("SELECT Descripcion FROM NumEvaluacion WHERE IDNumEvaluacion=" + number);
  return row.Eof() ? number : row.Fields("Descripcion").Text();
}

void LockList::AddLock(std::vector<Publication>& publications, const Recordset& lock) const {
  const auto id = lock.Fields("CodPublicacion").Long();
  auto owner = std::find_if(publications.begin(), publications.end(),
                            [id](const Publication& candidate) { return candidate.id == id; });
  if (owner == publications.end()) {
    Publication orphans;
    orphans.id = id;
    orphans.owner = lock.Fields(kLockUser).Long();
    orphans.ownerName = OwnerName(orphans.owner);
    orphans.evaluation = EvaluationName(lock.Fields("CodNumEvaluacion").Long());
    orphans.exists = false;
    owner = publications.insert(publications.end(), orphans);
  }
  const auto taught = lock.Fields("CodMatDet").Text();
  const auto subject = connection_.Execute(
      "SELECT Materia.Nombre, Seccion.Descripcion FROM (MateriaDetalles LEFT JOIN Materia ON "
      "Materia.IDMateria=MateriaDetalles.CodMateria) LEFT JOIN Seccion ON "
      "Seccion.IDSeccion=MateriaDetalles.CodSeccion WHERE IDMateriaDetalles=" +
      std::to_string(lock.Fields("CodMatDet").Long()));
  owner->subjects.push_back(subject.Eof() ? "materia " + taught
                                          : subject.Fields("Nombre").Text() + " (" +
                                                subject.Fields("Descripcion").Text() + ")");
}

std::vector<LockList::Publication> LockList::Read() const {
  std::vector<Publication> publications;
  auto rows = connection_.Execute("SELECT * FROM PublicacionPte ORDER BY IDPublicacionPte");
  for (; !rows.Eof(); rows.MoveNext()) {
    Publication publication;
    publication.id = rows.Fields("IDPublicacionPte").Long();
    publication.owner = rows.Fields(kPublicationOwner).Long();
    publication.ownerName = OwnerName(publication.owner);
    publication.evaluation = EvaluationName(rows.Fields("CodNumEvaluacion").Long());
    publications.push_back(publication);
  }
  auto locks = connection_.Execute("SELECT * FROM BloqueoPte ORDER BY CodPublicacion, CodMatDet");
  for (; !locks.Eof(); locks.MoveNext()) AddLock(publications, locks);
  return publications;
}

bool LockList::RemoveIf(int publication, const std::function<bool()>& still) {
  const auto id = std::to_string(publication);
  // What is read from here on is what is removed: nobody else's statement comes between.
  const auto engine = EngineReached(connection_);
  const auto sqlServer = engine == sqltext::Engine::SqlServer;
  if (sqlServer) connection_.Execute("SET TRANSACTION ISOLATION LEVEL SERIALIZABLE");
  const auto* const begin = engine == sqltext::Engine::PostgreSql
                                ? "BEGIN TRANSACTION ISOLATION LEVEL REPEATABLE READ"
                                : "BEGIN TRANSACTION";
  auto removed = false;
  {
    Transaction transaction(connection_, begin);
    // A file is held for writing at once, and waited for.
    connection_.Execute("DELETE FROM BloqueoPte WHERE 1=0");
    removed = still();
    if (removed) {
      connection_.Execute("DELETE FROM BloqueoPte WHERE CodPublicacion=" + id);
      connection_.Execute("DELETE FROM PublicacionPte WHERE IDPublicacionPte=" + id);
      transaction.KeepOrTell();
    }
  }
  if (sqlServer) connection_.Execute("SET TRANSACTION ISOLATION LEVEL READ COMMITTED");
  return removed;
}

bool LockList::Remove(int publication) {
  const auto id = std::to_string(publication);
  const auto any = [&](const std::string& from) {
    return !connection_.Execute("SELECT 1 FROM " + from).Eof();
  };
  return RemoveIf(publication, [&] {
    return any("BloqueoPte WHERE CodPublicacion=" + id) ||
           any("PublicacionPte WHERE IDPublicacionPte=" + id);
  });
}

bool LockList::RemoveUnchanged(const Publication& seen) {
  return RemoveIf(seen.id, [&] {
    const auto now = Read();
    return std::find(now.begin(), now.end(), seen) != now.end();
  });
}

}  // namespace quorvane
