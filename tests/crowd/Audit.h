#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/crowd/Deeds.h"
#include "tests/crowd/Diary.h"

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
  void Run(const std::vector<Diary::Entry>& diary, const Deeds& deeds);
  /// Those tables as they are at the end, when nothing may remain of any form.
  void CompareEnd(const std::map<std::string, Diary::Table>& after);

  [[nodiscard]] const std::vector<std::string>& Violations() const noexcept { return violations_; }
  [[nodiscard]] const Holes& Found() const noexcept { return holes_; }

 private:
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

  void Replay(const Diary::Entry& entry);
  void TakePublication(const Diary::Entry& entry, Session& session);
  void TakeLock(const Diary::Entry& entry, const Session& session);
  void TakePending(const Diary::Entry& entry);
  void TakeGrades(const Diary::Entry& entry, const Deeds::Deed& deed);
  void TakeGivenGrades(const Diary::Entry& entry, const Session& session);
  void TakeRemovedGrades(const Diary::Entry& entry, const Session& session);
  void TakeDifference(const Deeds::Difference& difference);

  /// Where the grades of that row belong; nothing when the subject isn't in the register.
  [[nodiscard]] std::optional<Pending> PendingOf(const std::string& row) const;
  [[nodiscard]] bool Holds(const Session& session, const Subject& subject);
  /// It, or at least somebody after it had begun to load, has locked the subject.
  [[nodiscard]] bool FoundLocked(const Session& session, const Subject& subject);
  void Break(const Diary::Entry& entry, const std::string& what);

  std::map<std::string, Diary::Table> tables_;
  std::deque<Lock> locks_;
  std::map<Subject, std::vector<Lock*>> history_;  ///< of each subject, in their order
  std::map<Subject, std::vector<Lock*>> held_;     ///< those that last
  std::map<std::int64_t, Lock*> lockRows_;
  std::map<Row, Save> saves_;
  std::map<std::string, Pending> pending_;
  std::vector<std::string> violations_;
  Holes holes_;
};

}  // namespace quorvane::test
