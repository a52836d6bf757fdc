#include "apps/zendria/ImportDialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "adapters/qt/views/FocusBorder.h"
#include "apps/zendria/FirstSize.h"

namespace quorvane::zendria {
namespace {

constexpr std::size_t kMostLinesShown = 1000;

void AddLines(QListWidget& list, const std::vector<std::string>& lines, bool misfits) {
  for (std::size_t i = 0; i < lines.size() && i < kMostLinesShown; ++i) {
    auto* const item = new QListWidgetItem(QString::fromStdString(lines[i]), &list);
    if (!misfits) continue;
    auto font = item->font();
    font.setBold(true);
    item->setFont(font);
    item->setText("No encaja. " + item->text());
  }
  if (lines.size() > kMostLinesShown)
    list.addItem(QStringLiteral("… y otras %1").arg(lines.size() - kMostLinesShown));
}

}  // namespace

ImportDialog::ImportDialog(SchoolAddress school, QWidget* parent)
    : QDialog(parent),
      school_(std::move(school)),
      name_("Ningún fichero"),
      whatFits_("Importar las líneas que encajan y dejar las &demás"),
      import_("&Importar") {
  setObjectName("importar");
  setWindowTitle("Importar el registro");
  Build();
}

void ImportDialog::Build() {
  auto* const choose = new QPushButton("&Elegir fichero…");
  choose->setAutoDefault(false);
  auto* const close = new QPushButton("&Cerrar");
  close->setAutoDefault(false);
  import_.setObjectName("hacerlo");
  import_.setAutoDefault(false);
  import_.setEnabled(false);
  whatFits_.setObjectName("loQueSePueda");
  list_.setObjectName("lineas");
  list_.setAccessibleName("Líneas del fichero");
  list_.setWordWrap(true);
  qt::ShowFocusOnBorder(list_);
  notice_.setWordWrap(true);
  auto* const hint = new QLabel(
      "Un fichero CSV con las columnas alumno, sección, materia, curso, evaluaciones y, si se "
      "quiere, profesor. Antes de escribir nada se busca todo.");
  hint->setWordWrap(true);

  auto* const file = new QHBoxLayout;
  file->addWidget(choose);
  file->addWidget(&name_, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(&import_);
  buttons->addWidget(&notice_, 1);
  buttons->addWidget(close);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(hint);
  column->addLayout(file);
  column->addWidget(&list_, 1);
  column->addWidget(&whatFits_);
  column->addLayout(buttons);
  TakeFirstSize(*this, {860, 520});
  connect(choose, &QPushButton::clicked, this, [this] { AskForFile(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  connect(&import_, &QPushButton::clicked, this, [this] { Import(); });
  connect(&whatFits_, &QCheckBox::toggled, this, [this] { ShowWhatMayBeDone(); });
}

void ImportDialog::AskForFile() {
  const auto file = QFileDialog::getOpenFileName(this, "Importar el registro", {},
                                                 "Valores separados (*.csv *.txt);;Todos (*)");
  if (!file.isEmpty()) Choose(file);
}

void ImportDialog::Choose(const QString& file) {
  file_.clear();
  fitting_ = 0;
  list_.clear();
  name_.setText(QFileInfo(file).fileName());
  notice_.clear();
  ImportOptions options;
  options.simulate = true;
  ImportReport report;
  if (Run(file, "Buscando lo que dice el fichero…", options, report) == WorkEnd::Done) {
    ShowLines(report);
    fits_ = report.misfits.empty();
    fitting_ = static_cast<int>(report.lines.size());
    notice_.setText(QStringLiteral("%1 líneas encajan, %2 no")
                        .arg(report.lines.size())
                        .arg(report.misfits.size()));
    file_ = file;
  }
  ShowWhatMayBeDone();
}

WorkEnd ImportDialog::Run(const QString& file, const QString& doing, const ImportOptions& options,
                          ImportReport& report) {
  const auto end =
      StoppableWork::Do({this, windowTitle(), doing, patience}, [&](const auto& progress) {
        report = ImportRegister(school_, file.toStdString(), options, progress);
      });
  if (end == WorkEnd::Stopped) notice_.setText("Cancelado: no se ha escrito nada");
  return end;
}

void ImportDialog::ShowLines(const ImportReport& report) {
  list_.clear();
  AddLines(list_, report.misfits, true);
  AddLines(list_, report.warnings, false);
  AddLines(list_, report.lines, false);
}

void ImportDialog::ShowWhatMayBeDone() {
  import_.setEnabled(!file_.isEmpty() && fitting_ > 0 && (fits_ || whatFits_.isChecked()));
}

void ImportDialog::Import() {
  ImportOptions options;
  options.whatFits = whatFits_.isChecked();
  ImportReport report;
  if (Run(file_, "Poniendo en el registro lo que dice el fichero…", options, report) !=
      WorkEnd::Done)
    return;
  ShowLines(report);
  notice_.setText(report.written ? QStringLiteral("Importadas %1 materias de %2 alumnos; %3 ya "
                                                  "estaban; %4 profesores puestos")
                                       .arg(report.subjects)
                                       .arg(report.students)
                                       .arg(report.standing)
                                       .arg(report.teachers)
                                 : QString("No se ha importado nada"));
  file_.clear();
  ShowWhatMayBeDone();
}

}  // namespace quorvane::zendria
