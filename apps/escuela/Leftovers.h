#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "apps/escuela/LockList.h"
#include "apps/escuela/PublicationNotes.h"

namespace quorvane {

/// The publications of one user, and which of his programs may have them: what a crash has left is
/// told from what is open.
class Leftovers {
 public:
  enum class Holder {
    NoteLess,   ///< no program has noted it: one of another kind, or one that couldn't
    Running,    ///< a program that is there
    Elsewhere,  ///< one on another computer, or of which nothing can be told
    Gone,       ///< one of this computer's that is there no more
  };
  struct Left {
    LockList::Publication publication;
    Holder holder = Holder::NoteLess;
    std::string computer;  ///< of the program that noted it
    std::int64_t process = 0;
    std::int64_t since = 0;  ///< seconds of the system's clock

    bool operator==(const Left&) const = default;
  };

  /// `school` is open, without a name for the trace, and outlives this.
  Leftovers(Connection& school, PublicationNotes notes)
      : school_(school), notes_(std::move(notes)) {}

  /// By number. Where several programs have noted one number, a program that is gone counts last.
  /// Throws the engine's error.
  [[nodiscard]] std::vector<Left> Of(std::int32_t user) const;

  /// Removes those of them that are gone's and still stand as they were read; gives how many.
  /// Nothing of anybody else is ever touched. Throws the engine's error.
  std::size_t RemoveGone(std::int32_t user, const std::vector<Left>& seen);

  /// Removes the notes of programs that are gone and have no publication any more. Throws the
  /// engine's error.
  void Tidy();

 private:
  Connection& school_;
  PublicationNotes notes_;
};

}  // namespace quorvane
