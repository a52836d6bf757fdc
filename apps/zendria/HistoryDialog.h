#pragma once

#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QStringList>
#include <QTreeWidget>
#include <vector>

#include "apps/escuela/history/GradeHistory.h"

namespace quorvane::zendria {

class ColumnsInSight;

/// Who changed which grade and when, the newest first, narrowed by days, evaluation and words.
class HistoryDialog : public QDialog {
 public:
  /// `school` is open and outlives the dialog.
  explicit HistoryDialog(Connection& school, QWidget* parent = nullptr)
      : HistoryDialog(school, {}, {}, parent) {}
  /// Of what that member of staff may grade; 0 for all.
  HistoryDialog(Connection& school, std::int32_t staff, QWidget* parent)
      : HistoryDialog(school, MayGradeFilter(staff), {}, parent) {}
  /// Of what `of` asks for alone, whenever it was; `title` is what that is called.
  HistoryDialog(Connection& school, const HistoryFilter& of, const QString& title, QWidget* parent);

  [[nodiscard]] QTreeWidget& List() { return list_; }
  [[nodiscard]] QLineEdit& Words() { return words_; }
  [[nodiscard]] QDateEdit& From() { return from_; }
  [[nodiscard]] QDateEdit& To() { return to_; }
  [[nodiscard]] QLabel& Notice() { return notice_; }

 private:
  /// A change, and what words are looked for in.
  struct Row {
    QStringList cells;
    QString folded;
  };

  static HistoryFilter MayGradeFilter(std::int32_t staff);
  void Build();
  void Read();
  void Show();

  Connection& school_;
  HistoryFilter of_;
  QDateEdit from_;
  QDateEdit to_;
  QComboBox evaluation_;
  QLineEdit words_;
  QTreeWidget list_;
  ColumnsInSight* columns_ = nullptr;
  QLabel notice_;
  QString off_;            ///< why nothing is kept; empty while it is
  std::vector<Row> rows_;  // the newest first
};

}  // namespace quorvane::zendria
