#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/zendria/AbsentCells.h"
#include "apps/zendria/GradeCell.h"

namespace quorvane::qt {
class FormWindow;
}

namespace quorvane::zendria {

/// A cell of a draft that wasn't put in, and what stands in its place.
struct LeftCell {
  enum class Why {
    Changed,     ///< it holds something else than when the draft was typed
    Gone,        ///< the form doesn't have it any more
    NotOffered,  ///< it is as it was, and doesn't offer that grade any more
  };

  GradeCell cell;
  std::string now;  ///< the text of the cell
  Why why = Why::Changed;
};

/// A draft held against the form that has just opened with its choices.
class DraftReplay {
 public:
  DraftReplay(const qt::FormWindow& window, const std::vector<GradeCell>& draft,
              const AbsentCells& absent);

  /// Each cell holds already what the draft has.
  [[nodiscard]] bool Nothing() const noexcept {
    return fit_.empty() && changed_.empty() && waiting_.empty();
  }
  /// How many cells are as they were when the draft was typed.
  [[nodiscard]] std::size_t Fit() const noexcept { return fit_.size(); }
  /// How many are otherwise, or gone.
  [[nodiscard]] std::size_t Changed() const noexcept { return changed_.size(); }
  /// Those whose subject the form doesn't have now, and may have another time.
  [[nodiscard]] const std::vector<GradeCell>& Waiting() const noexcept { return waiting_; }
  /// All of these.
  [[nodiscard]] std::vector<GradeCell> Cells() const;

  /// Puts in what fits, as the user would: walks to the cell, begins its edit and ends it by the
  /// entry; then walks back. Gives those that were left as they are. Throws what the form does.
  [[nodiscard]] std::vector<LeftCell> Play(qt::FormWindow& window) const;

 private:
  std::vector<GradeCell> fit_;
  std::vector<GradeCell> changed_;
  std::vector<GradeCell> waiting_;
};

}  // namespace quorvane::zendria
