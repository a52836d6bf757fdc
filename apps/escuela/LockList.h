#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/data/Connection.h"

namespace quorvane {

/// Whose a lock is: a column of `BloqueoPte` that the module reads by its place, from 0.
inline constexpr std::size_t kLockUser = 3;

/// The publications and locks of a school: who has a grade form open, and on what. A form that
/// died leaves its own behind, and its subjects stay hidden from all forms until they are removed.
class LockList {
 public:
  struct Publication {
    int id = 0;
    int owner = 0;           ///< the user
    std::string ownerName;   ///< of the member of staff, else of the account; empty for none
    std::string evaluation;  ///< its name, or its number when it has no row
    bool exists = true;      ///< false for locks that no publication owns any more
    std::vector<std::string> subjects;  ///< "Matemáticas (2º ESO A)", one a lock

    bool operator==(const Publication&) const = default;
  };

  /// `connection` is open and outlives the list.
  explicit LockList(Connection& connection) : connection_(connection) {}

  /// By number. Locks without a publication follow under the number that they bear.
  [[nodiscard]] std::vector<Publication> Read() const;

  /// The name of the user as of `Publication::ownerName`.
  [[nodiscard]] std::string OwnerName(int user) const;

  /// Removes a publication with its locks, or locks without one that bear the number, and nothing
  /// else; the locks first, as the module does, and all or nothing. False when there is neither.
  /// The engine's error, with nothing removed, when somebody else changes them at the same time.
  bool Remove(int publication);

  /// The same, while it stands as it was read. A number that has become free is given again, and
  /// its next bearer has a form open. False, with nothing removed, when it stands otherwise.
  bool RemoveUnchanged(const Publication& seen);

 private:
  bool RemoveIf(int publication, const std::function<bool()>& still);
  [[nodiscard]] std::string AccountName(int user) const;
  [[nodiscard]] std::string EvaluationName(int evaluation) const;
  void AddLock(std::vector<Publication>& publications, const Recordset& lock) const;

  Connection& connection_;
};

}  // namespace quorvane
