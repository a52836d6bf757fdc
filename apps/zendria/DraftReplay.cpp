#include "apps/zendria/DraftReplay.h"

#include <algorithm>

#include "adapters/qt/grid/CellEdits.h"
#include "adapters/qt/window/FormWindow.h"
#include "apps/zendria/GradeForm.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Retivo.h"
#include "register/cMateria.h"

namespace quorvane::zendria {
namespace {

using Why = LeftCell::Why;

/// Where a cell stands; the form has no such row for -1.
int GridRow(const Retivo& grid, const std::string& key) {
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    if (grid.TextMatrix(row, grid.Cols() - 1) == key) return row;
  return -1;
}

int EntryOf(const Retivo& grid, const GradeCell& cell) {
  const auto& list = grid.Lista(cell.column);
  const auto found = std::find_if(list.begin(), list.end(),
                                  [&cell](const auto& entry) { return entry.data == cell.data; });
  return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

/// A user at the form, for one play.
class Hand {
 public:
  explicit Hand(qt::FormWindow& window)
      : window_(window),
        form_(AsGradeForm(window.Model())),
        walk_(Own<ComboBox>(form_->Walk())),
        grid_(Own<Retivo>(form_->Grid())),
        first_(walk_.ListIndex()) {}

  /// Brings the cell's row into the grid; its number, -1 without one.
  int WalkTo(const GradeCell& cell) {
    const auto entry = form_->WalkEntry(cell);
    if (entry < 0 || cell.column >= grid_.Cols()) return -1;
    if (walk_.ListIndex() != entry) walk_.ListIndex(entry);
    return GridRow(grid_, form_->RowKey(cell));
  }
  void WalkBack() {
    if (walk_.ListIndex() != first_) walk_.ListIndex(first_);
  }

  [[nodiscard]] std::string TextAt(int row, const GradeCell& cell) const {
    return row < 0 ? std::string() : grid_.TextMatrix(row, cell.column);
  }

  /// False where the form offers that cell no such grade; it is left as it was.
  bool Put(int row, const GradeCell& cell) {
    if (row < 0 || !grid_.EditsThroughList(cell.column) || grid_.ColWidth(cell.column) == 0)
      return false;
    grid_.BeginEdit(row, cell.column);
    const auto entry = EntryOf(grid_, cell);
    if (entry < 0) return false;
    qt::CellEdits(window_, grid_).End(entry);
    return true;
  }

 private:
  template <class Kind>
  [[nodiscard]] Kind& Own(const Control& control) const {
    return dynamic_cast<Kind&>(*window_.Model().Find(control.Name()));
  }

  qt::FormWindow& window_;
  std::unique_ptr<const GradeForm> form_;
  ComboBox& walk_;
  Retivo& grid_;
  int first_;
};

}  // namespace

DraftReplay::DraftReplay(const qt::FormWindow& window, const std::vector<GradeCell>& draft,
                         const AbsentCells& absent) {
  const auto form = AsGradeForm(window.Model());
  for (const auto& cell : draft) {
    const auto* const subject = form->Subject(cell);
    if (subject == nullptr) {
      const auto state = absent.StateOf(cell);
      if (state == AbsentCells::State::Waiting) waiting_.push_back(cell);
      if (state == AbsentCells::State::Gone) changed_.push_back(cell);
      continue;
    }
    const auto* const field = form->Field(cell.column);
    const auto known = field != nullptr && field->name == cell.field &&
                       subject->CodAlumno_MateriaDetalles == cell.pending;
    const auto now = known ? field->stored(*subject) : 0;
    if (known && now == cell.data) continue;
    (known && now == cell.formerData ? fit_ : changed_).push_back(cell);
  }
}

std::vector<GradeCell> DraftReplay::Cells() const {
  auto cells = fit_;
  for (const auto* const others : {&changed_, &waiting_})
    cells.insert(cells.end(), others->begin(), others->end());
  return cells;
}

std::vector<LeftCell> DraftReplay::Play(qt::FormWindow& window) const {
  Hand hand(window);
  std::vector<LeftCell> left;
  std::vector<GradeCell> refused;
  for (const auto& cell : fit_)
    if (!hand.Put(hand.WalkTo(cell), cell)) refused.push_back(cell);
  for (const auto& cell : refused) {
    // A measure is offered once the subject has its grade, which may have come after it.
    const auto row = hand.WalkTo(cell);
    if (!hand.Put(row, cell))
      left.push_back({cell, hand.TextAt(row, cell), row < 0 ? Why::Gone : Why::NotOffered});
  }
  for (const auto& cell : changed_) {
    const auto row = hand.WalkTo(cell);
    left.push_back({cell, hand.TextAt(row, cell), row < 0 ? Why::Gone : Why::Changed});
  }
  hand.WalkBack();
  return left;
}

}  // namespace quorvane::zendria
