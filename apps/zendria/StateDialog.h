#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QTimer>
#include <QTreeWidget>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "apps/escuela/state/SchoolState.h"
#include "apps/zendria/GradeRoute.h"

namespace quorvane::zendria {

class ColumnsInSight;
class StrayMarks;

/// How far the evaluations have come, as a tree: evaluation, section or teacher, subject. It is
/// read anew by a key and every minute, and what is open and current stays so.
class StateDialog : public QDialog {
 public:
  /// Who looks: a member of staff (0 for none), and whether he sees all.
  struct Viewer {
    std::int32_t staff = 0;
    bool seesAll = false;
    std::int32_t centre = 0;
  };

  /// `school` is open and outlives the dialog.
  StateDialog(Connection& school, Viewer viewer, QWidget* parent = nullptr);

  /// The way to what was double-clicked, when that ended the dialog.
  [[nodiscard]] const std::optional<GradeRoute>& Chosen() const noexcept { return chosen_; }

  [[nodiscard]] QTreeWidget& Tree() { return tree_; }
  [[nodiscard]] QCheckBox& MissingOnly() { return missing_; }
  [[nodiscard]] QComboBox& Grouping() { return grouping_; }
  /// Runs while it is read by itself.
  [[nodiscard]] const QTimer& Clock() const { return minute_; }
  void Refresh();

 private:
  void Build();
  /// The viewer, or a number that nobody bears.
  [[nodiscard]] std::int32_t Me() const;
  [[nodiscard]] StateFilter Filter() const;
  [[nodiscard]] bool BySections() const;
  void FillSections(const SchoolState& state, const std::vector<StateRow>& rows);
  void FillTeachers(const SchoolState& state, const StrayMarks& strays,
                    const std::vector<StateRow>& rows);
  /// False, and told, where that failed; it is tried again at the next opening.
  bool LoadSubjects(QTreeWidgetItem& section);
  void Keep();
  /// False at the first section that couldn't be loaded.
  bool Restore();
  /// Ends the dialog, or says that no screen finds it.
  void Choose(const QTreeWidgetItem& item);
  /// Not yet in the tree.
  static QTreeWidgetItem* MakeEvaluation(const SchoolState& state, std::int32_t evaluation);

  Connection& school_;
  Viewer viewer_;
  std::unique_ptr<SchoolState> state_;
  QCheckBox missing_;
  QCheckBox mySections_;
  QCheckBox mySubjects_;
  QComboBox grouping_;
  QTreeWidget tree_;
  QLabel read_;
  QTimer minute_;
  ColumnsInSight* columns_ = nullptr;
  QStringList open_;
  QString current_;
  int scrolled_ = 0;
  std::optional<GradeRoute> chosen_;
};

}  // namespace quorvane::zendria
