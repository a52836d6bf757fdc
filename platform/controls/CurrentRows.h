#pragma once

#include <cstdint>
#include <vector>

namespace quorvane {

class Form;
class MSFlexGrid;

/// For a front end: the rows that the user has chosen on a form, held over a gesture that opens a
/// dialog. A form that fills a grid again when the dialog returns leaves its first row current, and
/// the user's next gesture would hit another than the one he chose.
///
/// The form outlives it.
class CurrentRows {
 public:
  /// Holds the current row of each `MSFlexGrid` by its row data, and by how many rows with the same
  /// data stand before it. A heading isn't held.
  explicit CurrentRows(const Form& form);

  /// Makes the held rows current, as a click does that leaves the column. A grid whose row is gone
  /// stays as the form has filled it, and so does one that stands on another row than its first: no
  /// filling leads there, so the form has chosen that row itself.
  void ChooseAgain() const;

 private:
  struct Held {
    MSFlexGrid* grid;
    std::int32_t data;
    int alikeBefore;
  };

  std::vector<Held> held_;
};

}  // namespace quorvane
