#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QString>
#include <array>
#include <memory>

#include "apps/escuela/report/ReportReader.h"

namespace quorvane::zendria {

/// Prints the sheets of pending subjects of a section, of all of them, of a student or of a
/// subject, or blank ones for their grades, on paper or into PDFs, and shows them beforehand.
class ReportDialog : public QDialog {
 public:
  /// `school` is open and outlives the dialog; `name` is what the sheets call it. With `staff`,
  /// what that one may grade; 0 for all.
  ReportDialog(Connection& school, const QString& name, std::int32_t staff,
               QWidget* parent = nullptr);

  [[nodiscard]] QComboBox& Sections() { return section_; }
  [[nodiscard]] QComboBox& Students() { return student_; }
  [[nodiscard]] QComboBox& Subjects() { return subject_; }
  [[nodiscard]] QCheckBox& Blank() { return blank_; }
  [[nodiscard]] QLabel& Notice() { return notice_; }

  /// Writes what is chosen into a PDF; how many pages, 0 where that failed and was told.
  int SavePdf(const QString& file);

 private:
  void Build();
  void Fill(Connection& school, const QString& name, std::int32_t staff);
  void ShowStudents();
  void ShowWhatMayBeChosen();
  void Preview();
  void PrintOnPaper();
  void AskForPdf();
  void AskForFolder();
  [[nodiscard]] bool AllSections() const;
  /// What is chosen as HTML; empty where that failed and was told.
  [[nodiscard]] QString Html();
  [[nodiscard]] QString AllHtml();

  std::unique_ptr<ReportReader> reader_;
  QRadioButton bySection_;
  QComboBox section_;
  QComboBox student_;
  QRadioButton bySubject_;
  QComboBox subject_;
  QCheckBox blank_;
  QLabel notice_;
  std::array<QPushButton, 3> outputs_;  ///< shown, on paper, into a PDF
};

}  // namespace quorvane::zendria
