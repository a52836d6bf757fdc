#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/crowd/Deeds.h"
#include "tests/crowd/Diary.h"
#include "tests/crowd/Grades.h"

namespace quorvane::test {

/// What happened through the holes that the protocol has by the order of its steps: between loading
/// and locking, between the halves of giving back, and round the register, which takes no lock.
struct Holes {
  std::int64_t doubleLocks = 0;   ///< a subject locked by two forms that loaded it at once
  std::int64_t alteredUnder = 0;  ///< grades saved under a lock, altered by a form that had loaded
  std::int64_t overwritten = 0;   ///< the same when the lock was gone by then
  std::int64_t removedUnder =
      0;  ///< grades saved under a lock, removed by a register opened before
  std::int64_t reusedNumbers = 0;  ///< grades given to a subject that took the number of one gone
  std::int64_t foreignLocks = 0;   ///< locks and publications removed with one of the same number
};

/// Goes through the diary of a run in its order, knowing which form of whom did what, and tells
/// what can't have been: a grade altered by a form that could see that another held the subject, a
/// form that saves without a lock, a grade that has gone and nobody took away.
class Audit {
 public:
  /// The tables that the module writes, as they were before the run.
  explicit Audit(std::map<std::string, Diary::Table> before) : tables_(std::move(before)) {}

  /// All entries of the diary, with whom they are of.
  void Run(const std::vector<Diary::Entry>& diary, const Deeds& deeds) {
    for (const auto& [number, row] : tables_["AlumnoPte_MatDet"])
      pending_[std::to_string(number)] = {Diary::Values(row)[2], 0};
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
      if (entry.table == "EvaluacionPte" || entry.table == "EvaluacionActaPte")
        TakeGrades(entry, deed);
    }
    for (; difference != differences.end(); ++difference) TakeDifference(difference->second);
  }

  /// Those tables as they are at the end, when nothing may remain of any form.
  void CompareEnd(const std::map<std::string, Diary::Table>& after) {
    for (const auto& [name, table] : after)
      if (tables_[name] != table)
        violations_.push_back("La tabla " + name + " no es como la dejó el último que la escribió");
    for (const std::string name : {"PublicacionPte", "BloqueoPte"})
      if (!after.at(name).empty())
        violations_.push_back("Quedan " + std::to_string(after.at(name).size()) + " filas en " +
                              name);
  }

  [[nodiscard]] const std::vector<std::string>& Violations() const noexcept { return violations_; }
  [[nodiscard]] const Holes& Found() const noexcept { return holes_; }

 private:
  /// The column of the tables of grades.
  static constexpr std::size_t kEvaluation = 2;

  /// A subject in an evaluation, as the lock's row names it.
  using Subject = std::pair<std::string, std::string>;
  struct Lock {
    Subject subject;
    std::string publication;
    const Session* session = nullptr;
    std::int64_t from = 0;
  };
  struct Save {
    const Session* session = nullptr;
    std::int64_t at = 0;
  };
  struct Pending {
    std::string subject;
    std::int64_t since = 0;
  };
  using Row = std::pair<std::string, std::int64_t>;  ///< table and number

  void Replay(const Diary::Entry& entry) {
    auto& table = tables_[entry.table];
    const auto row = table.find(entry.row);
    if (entry.action == Diary::Action::Insert) {
      if (row != table.end()) Break(entry, "Dos filas con la misma clave");
      table[entry.row] = entry.after;
    } else if (row == table.end() || row->second != entry.before) {
      Break(entry, "La fila no era como la dejó el último que la escribió");
    } else if (entry.action == Diary::Action::Update) {
      row->second = entry.after;
    } else {
      table.erase(row);
    }
  }

  void TakePublication(const Diary::Entry& entry, Session& session) {
    if (entry.action == Diary::Action::Insert) {
      const auto values = Diary::Values(entry.after);
      session.publishedAt = entry.number;
      session.publication = values.front();
      session.evaluation = values.back();
    } else if (!session.outside && Diary::Values(entry.before).front() != session.publication) {
      Break(entry, "Ha quitado la publicación de otro");
    }
  }

  void TakeLock(const Diary::Entry& entry, const Session& session) {
    if (entry.action == Diary::Action::Delete) return TakeRemovedLock(entry, session);
    const auto values = Diary::Values(entry.after);
    // By position: the subject and the evaluation.
    const Subject subject{values[2], values[1]};
    for (const auto* const lock : held_[subject]) {
      ++holes_.doubleLocks;
      if (lock->from < session.publishedAt)
        Break(entry, "Ha bloqueado lo que otro tenía bloqueado");
    }
    auto& lock = locks_.emplace_back();
    lock = {subject, values[4], &session, entry.number};
    lockRows_[entry.row] = &lock;
    held_[subject].push_back(&lock);
    lastLock_[subject] = entry.number;
  }

  void TakeRemovedLock(const Diary::Entry& entry, const Session& session) {
    const auto known = lockRows_.find(entry.row);
    if (known == lockRows_.end()) return Break(entry, "Ha quitado un bloqueo que nadie ha puesto");
    const auto& lock = *known->second;
    std::erase(held_[lock.subject], &lock);
    if (session.outside || lock.session == &session) return;
    // The number of a publication that has just gone is free for the next one.
    if (lock.publication == session.publication)
      ++holes_.foreignLocks;
    else
      Break(entry, "Ha quitado el bloqueo de otro");
  }

  void TakePending(const Diary::Entry& entry) {
    const auto number = std::to_string(entry.row);
    if (entry.action == Diary::Action::Insert)
      pending_[number] = {Diary::Values(entry.after)[2], entry.number};
    else if (entry.action == Diary::Action::Delete)
      pending_.erase(number);
  }

  void TakeGrades(const Diary::Entry& entry, const Deeds::Deed& deed) {
    if (entry.action == Diary::Action::Delete)
      TakeRemovedGrades(entry, *deed.session);
    else if (entry.action == Diary::Action::Insert)
      saves_.erase({entry.table, entry.row});
    else if (GradeUpdate::Gives(deed.statement))
      TakeGivenGrades(entry, *deed.session);
    else if (GradesOf(entry.before) != GradesOf(entry.after))
      Break(entry, "Ha cambiado notas sin darlas");
  }

  void TakeGivenGrades(const Diary::Entry& entry, const Session& session) {
    const auto evaluation = Diary::Values(entry.after)[kEvaluation];
    if (session.publishedAt == 0 || evaluation != session.evaluation)
      return Break(entry, "Ha dado notas fuera de la evaluación que tiene abierta");
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
    // It, or at least somebody after it had begun to load, has locked the subject.
    if (lastLock_[subject] <= session.loadedAfter)
      Break(entry, "Ha dado notas de una materia que nadie ha bloqueado");
    auto& save = saves_[{entry.table, entry.row}];
    if (save.session != nullptr && save.session != &session && save.at > session.loadedAfter &&
        GradesOf(entry.before) != GradesOf(entry.after))
      ++(Holds(*save.session, subject) ? holes_.alteredUnder : holes_.overwritten);
    save = {&session, entry.number};
  }

  void TakeRemovedGrades(const Diary::Entry& entry, const Session& session) {
    const auto save = saves_.find({entry.table, entry.row});
    if (const auto pending = PendingOf(entry.before)) {
      const Subject subject{pending->subject, Diary::Values(entry.before)[kEvaluation]};
      for (const auto* const lock : held_[subject])
        if (lock->from <= session.loadedAfter && pending->since <= session.loadedAfter)
          Break(entry, "Ha quitado notas de una materia que " + lock->session->Name() +
                           " tenía bloqueada");
      if (save != saves_.end() && Holds(*save->second.session, subject)) ++holes_.removedUnder;
    }
    if (save != saves_.end()) saves_.erase(save);
  }

  void TakeDifference(const Deeds::Difference& difference) {
    const auto update = GradeUpdate::Parse(difference.statement);
    // What the form has saved and nobody else after it has to be there.
    for (const auto& [row, save] : saves_) {
      if (save.session != difference.session || row.first != update->table) continue;
      const auto values = Diary::Values(tables_[row.first].find(row.second)->second);
      const auto where = "CodNumEvaluacion=" + values[kEvaluation] + " AND CodAlumnoPte_MatDet =";
      if (update->condition == where + " " + values[1] || update->condition == where + values[1])
        violations_.push_back("Lo que ha grabado " + difference.session->Name() +
                              " no está, y nadie lo ha cambiado: " + difference.statement);
    }
  }

  /// What grade entry gives in a row of one of the two tables of grades: all but the row's own
  /// number, its subject and evaluation and, at its end, the mark of the last evaluation.
  static std::string GradesOf(const std::string& row) {
    std::size_t start = 0;
    for (int i = 0; i < 3; ++i) start = row.find('|', start) + 1;
    return row.substr(start, row.rfind('|') - start);
  }

  /// Where the grades of that row belong; nothing when the subject isn't in the register.
  [[nodiscard]] std::optional<Pending> PendingOf(const std::string& row) const {
    const auto pending = pending_.find(Diary::Values(row)[1]);
    if (pending == pending_.end()) return std::nullopt;
    return pending->second;
  }

  [[nodiscard]] bool Holds(const Session& session, const Subject& subject) {
    return std::ranges::any_of(held_[subject],
                               [&](const Lock* lock) { return lock->session == &session; });
  }

  void Break(const Diary::Entry& entry, const std::string& what) {
    violations_.push_back(what + ": proceso " + std::to_string(entry.process) + ", " + entry.table +
                          " [" + entry.before + "] > [" + entry.after + "], apunte " +
                          std::to_string(entry.number));
  }

  std::map<std::string, Diary::Table> tables_;
  std::deque<Lock> locks_;
  std::map<Subject, std::int64_t> lastLock_;    ///< the number of each subject's last one
  std::map<Subject, std::vector<Lock*>> held_;  ///< those that last
  std::map<std::int64_t, Lock*> lockRows_;
  std::map<Row, Save> saves_;
  std::map<std::string, Pending> pending_;
  std::vector<std::string> violations_;
  Holes holes_;
};

}  // namespace quorvane::test
