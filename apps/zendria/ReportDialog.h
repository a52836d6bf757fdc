#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QString>
#include <memory>

#include "apps/escuela/report/ReportReader.h"

class QPrinter;
class QTextDocument;

namespace quorvane::zendria {

/// Prints the sheets of pending subjects of a section or a student, on paper or into a PDF, and
/// shows them beforehand.
class ReportDialog : public QDialog {
 public:
  /// `school` is open and outlives the dialog; `name` is what the sheets call it. With `staff`,
  /// what that one may grade; 0 for all.
  ReportDialog(Connection& school, const QString& name, std::int32_t staff,
               QWidget* parent = nullptr);

  [[nodiscard]] QComboBox& Sections() { return section_; }
  [[nodiscard]] QComboBox& Students() { return student_; }
  [[nodiscard]] QCheckBox& Blank() { return blank_; }

  /// Writes what is chosen into a PDF; how many pages, 0 where that failed and was told.
  int SavePdf(const QString& file);

  /// Nothing is wider than the page, in points, or cut at its side.
  static void LayOut(QTextDocument& document, const QString& html, const QSizeF& page);

 private:
  void Build();
  void ShowStudents();
  void Preview();
  void PrintOnPaper();
  void AskForPdf();
  /// What is chosen as HTML; empty where that failed and was told.
  [[nodiscard]] QString Html();
  /// 0 where it can't be written, and then what stood there stands.
  static int WritePdf(const QString& file, const QString& html);
  static int Print(QPrinter& printer, const QString& html);

  std::unique_ptr<ReportReader> reader_;
  QComboBox section_;
  QComboBox student_;
  QCheckBox blank_;
};

}  // namespace quorvane::zendria
