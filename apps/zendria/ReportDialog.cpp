#include "apps/zendria/ReportDialog.h"

#include <QDate>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTextDocument>
#include <QTextOption>
#include <QVBoxLayout>
#include <cstdio>

#include "adapters/qt/views/ClosedListWheel.h"
#include "apps/escuela/report/NewFile.h"
#include "apps/escuela/report/ReportText.h"
#include "apps/zendria/Attempt.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/PrintOutcome.h"
#include "apps/zendria/SchoolError.h"

namespace quorvane::zendria {
namespace {

constexpr QMarginsF kMargins(12, 12, 12, 12);  // millimetres

/// Subjects by evaluations take more room across.
void TurnPage(QPrinter& printer) {
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setPageMargins(kMargins, QPageLayout::Millimeter);
}

}  // namespace

ReportDialog::ReportDialog(Connection& school, const QString& name, std::int32_t staff,
                           QWidget* parent)
    : QDialog(parent), blank_("&Hoja en blanco, para poner las notas a mano") {
  setObjectName("informe");
  setWindowTitle("Informe de pendientes");
  for (auto* const box : {&section_, &student_}) qt::LeaveWheelOf(*box);
  Build();
  Attempt(this, [&] {
    reader_ = std::make_unique<ReportReader>(
        school, name.toStdString(), QDate::currentDate().toString("dd/MM/yyyy").toStdString(),
        staff);
    for (const auto& [id, section] : reader_->Sections())
      section_.addItem(QString::fromStdString(section), id);
  });
  ShowStudents();
  connect(&section_, &QComboBox::currentIndexChanged, this, [this] { ShowStudents(); });
}

void ReportDialog::Build() {
  section_.setObjectName("seccion");
  student_.setObjectName("alumno");
  blank_.setObjectName("enBlanco");
  auto* const form = new QFormLayout;
  form->addRow("&Sección:", &section_);
  form->addRow("A&lumno:", &student_);
  form->addRow(&blank_);
  auto* const preview = new QPushButton("&Vista previa…");
  auto* const print = new QPushButton("&Imprimir…");
  auto* const pdf = new QPushButton("Guardar &PDF…");
  auto* const close = new QPushButton("&Cerrar");
  preview->setDefault(true);
  auto* const buttons = new QHBoxLayout;
  for (auto* const button : {preview, print, pdf}) buttons->addWidget(button);
  buttons->addStretch(1);
  buttons->addWidget(close);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(form);
  column->addLayout(buttons);
  connect(preview, &QPushButton::clicked, this, [this] { Preview(); });
  connect(print, &QPushButton::clicked, this, [this] { PrintOnPaper(); });
  connect(pdf, &QPushButton::clicked, this, [this] { AskForPdf(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void ReportDialog::ShowStudents() {
  student_.clear();
  student_.addItem("Todos los alumnos", 0);
  if (reader_ == nullptr || section_.currentIndex() < 0) return;
  Attempt(this, [this] {
    for (const auto& student : reader_->Section(section_.currentData().toInt()).students)
      student_.addItem(QString::fromStdString(student.name), student.id);
  });
}

QString ReportDialog::Html() {
  QString html;
  if (reader_ == nullptr || section_.currentIndex() < 0) return html;
  Attempt(this, [&] {
    const auto report =
        reader_->Section(section_.currentData().toInt(), student_.currentData().toInt());
    html = QString::fromStdString(blank_.isChecked() ? BlankSheetHtml(report) : ReportHtml(report));
  });
  return html;
}

void ReportDialog::LayOut(QTextDocument& document, const QString& html, const QSizeF& page) {
  document.setDocumentMargin(0);
  // A word longer than its column would make the table wider than the paper.
  QTextOption wrapped;
  wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  document.setDefaultTextOption(wrapped);
  document.setHtml(html);
  document.setPageSize(page);
}

int ReportDialog::Print(QPrinter& printer, const QString& html) {
  QTextDocument document;
  LayOut(document, html, printer.pageRect(QPrinter::Point).size());
  document.print(&printer);
  return document.pageCount();
}

int ReportDialog::SavePdf(const QString& file) {
  const auto html = Html();
  if (html.isEmpty()) return 0;
  if (const auto pages = WritePdf(file, html); pages > 0) return pages;
  ShowSchoolError(this, SchoolError(QStringLiteral("No se puede escribir %1. Elija otra carpeta, o "
                                                   "compruebe que queda espacio en el disco.")
                                        .arg(file)));
  return 0;
}

int ReportDialog::WritePdf(const QString& file, const QString& html) {
  if (const QFileInfo older(file); older.exists() && !older.isWritable()) return 0;
  // The printer doesn't tell that a disk is full. What stands is replaced by a whole file alone.
  const auto partial =
      file + QStringLiteral(".parcial-%1").arg(QRandomGenerator::global()->generate());
  QPrinter printer;
  TurnPage(printer);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(partial);
  const auto pages = Print(printer, html);
  if (IsWholePdf(partial) && std::rename(QFile::encodeName(partial), QFile::encodeName(file)) == 0)
    return pages;
  QFile::remove(partial);
  return 0;
}

void ReportDialog::Preview() {
  const auto html = Html();
  if (html.isEmpty()) return;
  QPrinter printer;
  TurnPage(printer);
  QPrintPreviewDialog preview(&printer, this);
  preview.setObjectName("vistaPrevia");
  connect(&preview, &QPrintPreviewDialog::paintRequested, this,
          [&html](QPrinter* to) { Print(*to, html); });
  preview.exec();
}

void ReportDialog::PrintOnPaper() {
  const auto html = Html();
  if (html.isEmpty()) return;
  QPrinter printer;
  TurnPage(printer);
  QPrintDialog dialog(&printer, this);
  dialog.setObjectName("imprimir");
  if (dialog.exec() != QDialog::Accepted) return;
  Print(printer, html);
  if (!CameOut(printer)) ShowNotPrinted(this, printer);
}

void ReportDialog::AskForPdf() {
  const auto name = QString::fromStdString(AsFileName(section_.currentText().toStdString()));
  const auto file = QFileDialog::getSaveFileName(this, "Guardar PDF", name + ".pdf", "PDF (*.pdf)");
  if (!file.isEmpty()) SavePdf(file);
}

}  // namespace quorvane::zendria
