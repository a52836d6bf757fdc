#include "tests/crowd/Audit.h"

#include <algorithm>

#include "tests/crowd/Grades.h"
#include "tests/crowd/Rows.h"

namespace quorvane::test {
namespace {

constexpr std::size_t kEvaluation = 2;

bool OfGrades(const std::string& table) {
  return table == "EvaluacionPte" || table == "EvaluacionActaPte";
}

/// The lock's row, by position: evaluation, subject and publication.
constexpr std::size_t kLockEvaluation = 1;
constexpr std::size_t kLockSubject = 2;
constexpr std::size_t kLockPublication = 4;

}  // namespace

void Audit::Break(const Diary::Entry& entry, const std::string& what) {
  violations_.push_back(what + ": proceso " + std::to_string(entry.process) + ", " + entry.table +
                        " [" + entry.before + "] > [" + entry.after + "], apunte " +
                        std::to_string(entry.number));
}

void Audit::Run(const std::vector<Diary::Entry>& diary, const Deeds& deeds) {
  for (const auto& [number, row] : tables_["AlumnoPte_MatDet"])
    pending_[std::to_string(number)] = {SplitRow(row)[2], 0};
  std::multimap<std::int64_t, Deeds::Difference> differences;
  for (const auto& difference : deeds.Differences())
    differences.emplace(difference.number, difference);
  auto difference = differences.begin();
  for (std::size_t place = 0; place < diary.size(); ++place) {
    const auto& entry = diary[place];
    for (; difference != differences.end() && difference->first < entry.number; ++difference)
      TakeDifference(difference->second);
    Replay(entry);
    if (entry.table == "AlumnoPte_MatDet") TakePending(entry);
    const auto& deed = deeds.Of(place);
    if (deed.session == nullptr) continue;
    if (entry.table == "PublicacionPte") TakePublication(entry, *deed.session);
    if (entry.table == "BloqueoPte") TakeLock(entry, *deed.session);
    if (OfGrades(entry.table)) TakeGrades(entry, deed);
  }
  for (; difference != differences.end(); ++difference) TakeDifference(difference->second);
}

void Audit::Replay(const Diary::Entry& entry) {
  auto& table = tables_[entry.table];
  const auto row = table.find(entry.row);
  if (entry.action == Diary::Action::Insert) {
    if (row != table.end()) Break(entry, "Dos filas con la misma clave");
    table[entry.row] = entry.after;
    return;
  }
  if (row == table.end() || row->second != entry.before) {
    Break(entry, "La fila no era como la dejó el último que la escribió");
    return;
  }
  if (entry.action == Diary::Action::Update)
    row->second = entry.after;
  else
    table.erase(row);
}

void Audit::TakePublication(const Diary::Entry& entry, Session& session) {
  if (entry.action == Diary::Action::Insert) {
    const auto values = SplitRow(entry.after);
    session.publishedAt = entry.number;
    session.publication = values.front();
    session.evaluation = values.back();
  } else if (!session.outside && SplitRow(entry.before).front() != session.publication) {
    Break(entry, "Ha quitado la publicación de otro");
  }
}

void Audit::TakeLock(const Diary::Entry& entry, const Session& session) {
  if (entry.action == Diary::Action::Delete) {
    const auto known = lockRows_.find(entry.row);
    if (known == lockRows_.end()) {
      Break(entry, "Ha quitado un bloqueo que nadie ha puesto");
      return;
    }
    const auto& lock = *known->second;
    std::erase(held_[lock.subject], &lock);
    if (session.outside || lock.session == &session) return;
    // The number of a publication that has just gone is free for the next one.
    if (lock.publication == session.publication)
      ++holes_.foreignLocks;
    else
      Break(entry, "Ha quitado el bloqueo de otro");
    return;
  }
  const auto values = SplitRow(entry.after);
  const Subject subject{values[kLockSubject], values[kLockEvaluation]};
  for (const auto* const lock : held_[subject]) {
    ++holes_.doubleLocks;
    if (lock->from < session.publishedAt) Break(entry, "Ha bloqueado lo que otro tenía bloqueado");
  }
  auto& lock = locks_.emplace_back();
  lock = {subject, values[kLockPublication], &session, entry.number};
  lockRows_[entry.row] = &lock;
  held_[subject].push_back(&lock);
  history_[subject].push_back(&lock);
}

void Audit::TakePending(const Diary::Entry& entry) {
  const auto number = std::to_string(entry.row);
  if (entry.action == Diary::Action::Insert)
    pending_[number] = {SplitRow(entry.after)[2], entry.number};
  else if (entry.action == Diary::Action::Delete)
    pending_.erase(number);
}

std::optional<Audit::Pending> Audit::PendingOf(const std::string& row) const {
  const auto pending = pending_.find(SplitRow(row)[1]);
  if (pending == pending_.end()) return std::nullopt;
  return pending->second;
}

bool Audit::Holds(const Session& session, const Subject& subject) {
  const auto& locks = held_[subject];
  return std::any_of(locks.begin(), locks.end(),
                     [&](const Lock* lock) { return lock->session == &session; });
}

bool Audit::FoundLocked(const Session& session, const Subject& subject) {
  const auto& locks = history_[subject];
  return !locks.empty() && locks.back()->from > session.loadedAfter;
}

void Audit::TakeGrades(const Diary::Entry& entry, const Deeds::Deed& deed) {
  if (entry.action == Diary::Action::Delete) {
    TakeRemovedGrades(entry, *deed.session);
    return;
  }
  if (entry.action == Diary::Action::Insert) {
    saves_.erase({entry.table, entry.row});
    return;
  }
  const auto update = ParseGradeUpdate(deed.statement);
  if (update && update->GivesGrades())
    TakeGivenGrades(entry, *deed.session);
  else if (GradesOf(entry.before) != GradesOf(entry.after))
    Break(entry, "Ha cambiado notas sin darlas");
}

void Audit::TakeGivenGrades(const Diary::Entry& entry, const Session& session) {
  const auto evaluation = SplitRow(entry.after)[kEvaluation];
  if (session.publishedAt == 0 || evaluation != session.evaluation) {
    Break(entry, "Ha dado notas fuera de la evaluación que tiene abierta");
    return;
  }
  const auto pending = PendingOf(entry.after);
  if (!pending || pending->since > session.loadedAfter) {
    ++holes_.reusedNumbers;
    return;
  }
  const Subject subject{pending->subject, evaluation};
  for (const auto* const lock : held_[subject])
    if (lock->session != &session && lock->from <= session.loadedAfter)
      Break(entry,
            "Ha dado notas de una materia que " + lock->session->Name() + " tenía bloqueada");
  if (!FoundLocked(session, subject))
    Break(entry, "Ha dado notas de una materia que nadie ha bloqueado");
  auto& save = saves_[{entry.table, entry.row}];
  if (save.session != nullptr && save.session != &session && save.at > session.loadedAfter &&
      GradesOf(entry.before) != GradesOf(entry.after))
    ++(Holds(*save.session, subject) ? holes_.alteredUnder : holes_.overwritten);
  save = {&session, entry.number};
}

void Audit::TakeRemovedGrades(const Diary::Entry& entry, const Session& session) {
  const auto save = saves_.find({entry.table, entry.row});
  const auto pending = PendingOf(entry.before);
  if (pending) {
    const Subject subject{pending->subject, SplitRow(entry.before)[kEvaluation]};
    for (const auto* const lock : held_[subject])
      if (lock->from <= session.loadedAfter && pending->since <= session.loadedAfter)
        Break(entry,
              "Ha quitado notas de una materia que " + lock->session->Name() + " tenía bloqueada");
    if (save != saves_.end() && Holds(*save->second.session, subject)) ++holes_.removedUnder;
  }
  if (save != saves_.end()) saves_.erase(save);
}

void Audit::TakeDifference(const Deeds::Difference& difference) {
  const auto update = ParseGradeUpdate(difference.statement);
  // What the form has saved and nobody else after it has to be there.
  for (const auto& [row, save] : saves_) {
    if (save.session != difference.session || row.first != update->table) continue;
    const auto found = tables_[row.first].find(row.second);
    const auto values = SplitRow(found->second);
    if (update->condition ==
            "CodNumEvaluacion=" + values[kEvaluation] + " AND CodAlumnoPte_MatDet = " + values[1] ||
        update->condition ==
            "CodNumEvaluacion=" + values[kEvaluation] + " AND CodAlumnoPte_MatDet =" + values[1])
      violations_.push_back("Lo que ha grabado " + difference.session->Name() +
                            " no está, y nadie lo ha cambiado: " + difference.statement);
  }
}

void Audit::CompareEnd(const std::map<std::string, Diary::Table>& after) {
  for (const auto& [name, table] : after)
    if (tables_[name] != table)
      violations_.push_back("La tabla " + name + " no es como la dejó el último que la escribió");
  for (const std::string name : {"PublicacionPte", "BloqueoPte"})
    if (!after.at(name).empty())
      violations_.push_back("Quedan " + std::to_string(after.at(name).size()) + " filas en " +
                            name);
}

}  // namespace quorvane::test
