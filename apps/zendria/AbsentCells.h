#pragma once

#include <QString>
#include <vector>

#include "apps/zendria/GradeCell.h"

namespace quorvane {
class Connection;
}

namespace quorvane::zendria {

class GradeForm;
struct User;

/// What becomes of the cells of a draft whose subject the form that opened doesn't have: another
/// form may hold it for a while, or it is there no more.
class AbsentCells {
 public:
  enum class State {
    Gone,     ///< the school has no such grade any more
    Waiting,  ///< it has, or can't be read: the form may show it another time
    Saved,    ///< it has the very grade that was typed
  };

  /// `school` is the host's own connection, neither traced nor observed; all outlive this.
  AbsentCells(Connection& school, const User& user, const GradeForm& form)
      : school_(school), user_(user), form_(form) {}

  [[nodiscard]] State StateOf(const GradeCell& cell) const;
  /// Who holds the subjects of these cells, a line each; empty when nobody does, or when that can't
  /// be read.
  [[nodiscard]] QString Holders(const std::vector<GradeCell>& cells) const;

 private:
  Connection& school_;
  const User& user_;
  const GradeForm& form_;
};

}  // namespace quorvane::zendria
