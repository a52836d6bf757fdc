#include "apps/zendria/ReportDialog.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QVBoxLayout>
#include <vector>

#include "adapters/qt/views/ClosedListWheel.h"
#include "apps/escuela/Today.h"
#include "apps/escuela/report/NewFile.h"
#include "apps/escuela/report/ReportText.h"
#include "apps/zendria/Attempt.h"
#include "apps/zendria/BusyCursor.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/PrintOutcome.h"
#include "apps/zendria/ReportPaper.h"
#include "apps/zendria/SectionPdfs.h"

namespace quorvane::zendria {
namespace {

template <class Report>
QString HtmlOf(const Report& report, bool blank) {
  return QString::fromStdString(blank ? BlankSheetHtml(report) : ReportHtml(report));
}

/// The file or folder that the user names; empty for none.
QString Asked(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().front();
}

void TellUnprinted(QWidget* parent, const QString& where) {
  ShowWarning(parent, QStringLiteral("No se puede escribir %1.").arg(where),
              "Elija otra carpeta, o compruebe que queda espacio en el disco.");
}

}  // namespace

ReportDialog::ReportDialog(Connection& school, const QString& name, std::int32_t staff,
                           QWidget* parent)
    : QDialog(parent),
      bySection_("&Sección:"),
      bySubject_("&Materia:"),
      blank_("&Hoja en blanco, para poner las notas a mano"),
      outputs_{QPushButton("&Vista previa…"), QPushButton("&Imprimir…"),
               QPushButton("Guardar &PDF…")} {
  setObjectName("informe");
  setWindowTitle("Informe de pendientes");
  Build();
  Attempt(this, [&] { Fill(school, name, staff); });
  ShowStudents();
  connect(&section_, &QComboBox::currentIndexChanged, this, [this] { ShowStudents(); });
  connect(&bySubject_, &QRadioButton::toggled, this, [this] { ShowWhatMayBeChosen(); });
}

void ReportDialog::Build() {
  const auto name = [](QComboBox& box, const char* object, const char* spoken) {
    box.setObjectName(object);
    box.setAccessibleName(spoken);
    qt::LeaveWheelOf(box);
  };
  name(section_, "seccion", "Sección");
  name(student_, "alumno", "Alumno");
  name(subject_, "materia", "Materia");
  bySection_.setObjectName("porSeccion");
  bySection_.setChecked(true);
  bySubject_.setObjectName("porMateria");
  blank_.setObjectName("enBlanco");
  notice_.setObjectName("resultado");
  notice_.setWordWrap(true);
  auto* const form = new QFormLayout;
  form->addRow(&bySection_, &section_);
  form->addRow("A&lumno:", &student_);
  form->addRow(&bySubject_, &subject_);
  form->addRow(&blank_);
  auto* const buttons = new QHBoxLayout;
  const std::array names = {"vistaPrevia", "enPapel", "guardarPdf"};
  const std::array slots = {&ReportDialog::Preview, &ReportDialog::PrintOnPaper,
                            &ReportDialog::AskForPdf};
  for (std::size_t i = 0; i < outputs_.size(); ++i) {
    outputs_[i].setObjectName(names[i]);
    buttons->addWidget(&outputs_[i]);
    connect(&outputs_[i], &QPushButton::clicked, this, slots[i]);
  }
  outputs_[0].setDefault(true);
  auto* const close = new QPushButton("&Cerrar");
  buttons->addStretch(1);
  buttons->addWidget(close);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(form);
  column->addWidget(&notice_);
  column->addLayout(buttons);
}

void ReportDialog::Fill(Connection& school, const QString& name, std::int32_t staff) {
  reader_ = std::make_unique<ReportReader>(school, name.toStdString(), PrintedToday(school), staff);
  const auto fill = [](QComboBox& box, const auto& rows) {
    for (const auto& [id, text] : rows) box.addItem(QString::fromStdString(text), id);
  };
  fill(section_, reader_->Sections());
  if (section_.count() > 1) section_.addItem("Todas las secciones", 0);
  fill(subject_, reader_->Subjects());
}

bool ReportDialog::AllSections() const {
  return bySection_.isChecked() && section_.currentIndex() >= 0 &&
         section_.currentData().toInt() == 0;
}

void ReportDialog::ShowStudents() {
  student_.clear();
  student_.addItem("Todos los alumnos", 0);
  if (reader_ != nullptr && section_.currentData().toInt() > 0)
    Attempt(this, [this] {
      for (const auto& student : reader_->Section(section_.currentData().toInt()).students)
        student_.addItem(QString::fromStdString(student.name), student.id);
    });
  ShowWhatMayBeChosen();
}

void ReportDialog::ShowWhatMayBeChosen() {
  const auto sections = bySection_.isChecked();
  section_.setEnabled(sections);
  student_.setEnabled(sections && student_.count() > 1);
  subject_.setEnabled(!sections);
  const auto any = (sections ? section_ : subject_).currentIndex() >= 0;
  for (auto& button : outputs_) button.setEnabled(any);
  notice_.setText(any ? QString() : "Ningún alumno tiene materias pendientes.");
}

QString ReportDialog::Html() {
  QString html;
  if (AllSections()) return AllHtml();
  Attempt(this, [&] {
    html = HtmlOf(bySection_.isChecked() ? reader_->Section(section_.currentData().toInt(),
                                                            student_.currentData().toInt())
                                         : reader_->Subject(subject_.currentData().toInt()),
                  blank_.isChecked());
  });
  return html;
}

QString ReportDialog::AllHtml() {
  std::vector<SectionReport> reports;
  SectionRun run;
  if (!WithSectionBar(
          this, [&](const auto& progress) { run = ReadSections(*reader_, reports, progress); }))
    return {};
  TellFailedSections(this, run);
  return reports.empty() ? QString() : HtmlOf(std::span(reports), blank_.isChecked());
}

int ReportDialog::SavePdf(const QString& file) {
  const auto html = Html();
  if (html.isEmpty()) return 0;
  const BusyCursor busy;
  if (const auto pages = WriteReportPdf(file, html); pages > 0) return pages;
  TellUnprinted(this, file);
  return 0;
}

void ReportDialog::Preview() {
  const auto html = Html();
  if (html.isEmpty()) return;
  QPrinter printer;
  TurnReportPage(printer);
  QPrintPreviewDialog preview(&printer, this);
  preview.setObjectName("vistaPrevia");
  connect(&preview, &QPrintPreviewDialog::paintRequested, this,
          [&html](QPrinter* to) { PrintReport(*to, html); });
  preview.exec();
}

void ReportDialog::PrintOnPaper() {
  const auto html = Html();
  if (html.isEmpty()) return;
  QPrinter printer;
  TurnReportPage(printer);
  QPrintDialog dialog(&printer, this);
  dialog.setObjectName("imprimir");
  if (dialog.exec() != QDialog::Accepted) return;
  auto pages = 0;
  {
    const BusyCursor busy;
    pages = PrintReport(printer, html);
  }
  if (pages == 0) ShowNotPrinted(this, printer);
}

void ReportDialog::AskForPdf() {
  if (AllSections()) {
    AskForFolder();
    return;
  }
  QFileDialog dialog(this, "Guardar PDF", {}, "PDF (*.pdf)");
  dialog.setObjectName("ficheroPdf");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix("pdf");
  const auto what = bySection_.isChecked() ? section_.currentText() : subject_.currentText();
  dialog.selectFile(QString::fromStdString(AsFileName(what.toStdString())) + ".pdf");
  if (const auto file = Asked(dialog); !file.isEmpty()) SavePdf(file);
}

void ReportDialog::AskForFolder() {
  QFileDialog dialog(this, "Carpeta para los PDF de todas las secciones");
  dialog.setObjectName("carpetaPdf");
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  const auto folder = Asked(dialog);
  if (folder.isEmpty()) return;
  const auto blank = blank_.isChecked();
  const auto run = WriteSectionPdfs(this, *reader_, folder, [blank](const SectionReport& report) {
    return HtmlOf(report, blank);
  });
  notice_.setText(run.sections == 0 ? QString("No se ha escrito ninguna sección")
                                    : QStringLiteral("Escritas %1 de %2 secciones en %3")
                                          .arg(run.Made())
                                          .arg(run.sections)
                                          .arg(folder));
}

}  // namespace quorvane::zendria
