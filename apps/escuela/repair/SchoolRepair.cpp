#include "apps/escuela/repair/SchoolRepair.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "apps/escuela/FieldValues.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/PatientWork.h"
#include "apps/escuela/Refusal.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolRules.h"
#include "apps/escuela/SchoolWriting.h"
#include "apps/escuela/Transaction.h"
#include "apps/escuela/history/LameHistory.h"
#include "apps/escuela/repair/FileBackup.h"
#include "apps/escuela/repair/RepairJournal.h"
#include "apps/escuela/repair/RowRepairs.h"
#include "frame/schema/SchoolSchema.h"

namespace quorvane {
namespace {

using sqltext::Engine;

// A fault leaves others behind at most as often as references stand in a row.
constexpr auto kMostRounds = 12;

void RequireNobody(Connection& school) {
  const auto publications = LockList(school).Read();
  const auto open = std::count_if(publications.begin(), publications.end(),
                                  [](const auto& publication) { return publication.exists; });
  if (open == 0) return;
  Refuse("Hay publicaciones de notas (" + std::to_string(open) +
         "): alguien puede estar introduciéndolas. Mire de quién son con «quorvane-escuela "
         "bloqueos», quite las de quien ya no está con «bloqueos --borrar», o repita con "
         "--con-publicaciones");
}

void MendOnce(Connection& school, RowRepairs& repairs) {
  std::map<std::string_view, bool> fit;
  for (const auto& reference : kReferences) {
    const auto [target, isNew] = fit.try_emplace(reference.target);
    if (isNew) target->second = KeysFit(school, reference.target);
    // Rows that refer to what has lost its key aren't nobody's: they wait for it.
    if (target->second) repairs.Orphans(reference);
  }
  repairs.Misplaced("EvaluacionPte", "EvaluacionActaPte", "Final<>0");
  repairs.Misplaced("EvaluacionActaPte", "EvaluacionPte", "Final=0");
  for (const auto& unique : kUniques) repairs.Doubles(unique);
  for (const auto& table : SchoolTables())
    for (const auto& column : table.columns)
      if (column.kind == SchemaKind::Key) repairs.DoubledKeys(table.name, column.name);
}

/// What is left behind, as it was.
std::vector<std::string> Mend(Connection& school, RepairJournal& journal) {
  // It stops every row of grades from going.
  LameHistory(school).Remove(journal);
  RowRepairs repairs(school, journal);
  for (auto round = 0; round < kMostRounds; ++round) {
    const auto done = journal.Rows();
    MendOnce(school, repairs);
    auto left = SchoolCheck(school).Rows();
    if (left.empty() || journal.Rows() == done) return left;
  }
  Refuse("No se ha podido reparar: " + SchoolCheck(school).Rows().front());
}

/// Nobody else writes from here on, and what others have just written is seen.
const char* Begin(Engine engine) {
  return engine == Engine::PostgreSql ? "BEGIN TRANSACTION ISOLATION LEVEL REPEATABLE READ"
                                      : "BEGIN TRANSACTION";
}

RepairReport Repair(const SchoolAddress& address, const RepairOptions& options,
                    const std::function<void(const RepairReport&)>& tell,
                    const std::function<void()>& goOn) {
  const auto school = OpenForPiece(address, SchoolAddress::Access::ReadWrite);
  AskBeforeEach(*school, goOn);
  RequireSchool(*school, "No se puede reparar " + address.Shown() + ": ");
  RepairReport report;
  if (SchoolCheck(*school).Rows().empty()) return report;
  if (address.IsOdbc() && !options.backedUp && !options.simulate)
    Refuse("Haga antes una copia de la base de datos, y repita con --con-copia-hecha");
  const auto engine = EngineReached(*school);
  if (engine == Engine::SqlServer) school->Execute("SET TRANSACTION ISOLATION LEVEL SERIALIZABLE");
  Transaction transaction(*school, Begin(engine));
  // A file is held for writing at once, and waited for.
  school->Execute("DELETE FROM BloqueoPte WHERE 1=0");
  if (!options.publicationsToo && !options.simulate) RequireNobody(*school);
  FileBackup backup;
  if (!address.IsOdbc() && !options.simulate) backup.Make(address.Text());
  RepairJournal journal(engine);
  report.left = Mend(*school, journal);
  report.undo = journal.Undo();
  if (report.undo.empty()) return report;
  report.copy = backup.Path();
  report.removed = journal.RemovedRows();
  report.changed = journal.ChangedRows();
  tell(report);
  if (!options.simulate) transaction.KeepOrTell();
  backup.Keep();
  return report;
}

}  // namespace

RepairReport RepairSchool(const SchoolAddress& address, const RepairOptions& options,
                          const std::function<void(const RepairReport&)>& tell,
                          const std::function<void()>& goOn) {
  RepairReport report;
  TellIfHeldOrLost([&] { report = Repair(address, options, tell, goOn); });
  return report;
}

}  // namespace quorvane
